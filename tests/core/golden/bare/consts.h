///////////////////////////////////////////////////
//                    consts                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#ifndef ZK_CONSTS
#define ZK_CONSTS

#include <stdio.h>
#include <string.h>

// Sizes of texts, each with its NUL.
#define MAXDESCRIPTION 70
#define MAXUNITS 25

#define MAXNUMTICKS	4	//Maxim Number of TICKS to Save in Variable History

// How certain a value or a result is. The lowest certainty, NULL, is 0.
enum CERTAINTY {VERYLOW=1, LOW, NOTVERYLOW, NORMAL, NOTVERYHIGH, HIGH, VERYHIGH, FULL};

// What a fact is for.


enum DATAFACTTYPE {NOTYPE=0, DETECTION, DIAGNOSTIC, ACTION };

#endif
