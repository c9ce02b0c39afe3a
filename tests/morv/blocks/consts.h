// As Zentrik writes it from the templates, for a project with one knowledge type of its own.
#ifndef ZK_CONSTS
#define ZK_CONSTS

#include <stdio.h>
#include <string.h>

#define MAXDESCRIPTION 70
#define MAXUNITS 25
#define MAXNUMTICKS	2	//Maxim Number of TICKS to Save in Variable History

enum CERTAINTY {VERYLOW=1, LOW, NOTVERYLOW, NORMAL, NOTVERYHIGH, HIGH, VERYHIGH, FULL};

enum DATAFACTTYPE {NOTYPE=0, DETECTION, DIAGNOSTIC, ACTION ,WEAR};
#endif
