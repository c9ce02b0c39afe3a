// Records of the local variables (.var) and the initial facts (.ikw) of a system.
#pragma once

#include "shell/core/record_text.h"

struct V_V {
    char Name[kNameSize];
    char Type[kNameSize];
    char Val[kNameSize];
};
static_assert(sizeof(V_V) == 765);

struct I_K {
    char K_Name[kNameSize];
    char K_Val[kNameSize];
    char Pres[kNameSize]; // certainty word; two blanks when the fact has no initial value
};
static_assert(sizeof(I_K) == 765);
