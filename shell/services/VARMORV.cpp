#include "shell/services/VARMORV.h"

char WorkPath[kNameSize];
int AddType;
char ResulFile[kNameSize];
char ResultFileName[kNameSize];
char DDEIKnw[kNameSize];
