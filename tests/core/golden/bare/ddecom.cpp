///////////////////////////////////////////////////
//                    ddecom                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#include <stdlib.h>
#include <string.h>

#include "ddecom.h"

// The names of the items are constants, though they are declared without const.
#pragma GCC diagnostic ignored "-Wwrite-strings"

// An item of type char is one character: it takes the first one of its text.
inline void strcpy(char &to,const char *from) {to=*from;}

Informacio DDEinfo;//- La estructura informacio
char *Items[]={
};


char hora[20];     // when an item was poked last; empty before the first time
int ActivatSB = 0; // for the main function to tell whether the rules run

// An item has the kind of the conversion that NewData does for it.
morv::ItemKind morv::item_kind = morv::ItemKind::Text;
#define atoi(text) (morv::item_kind=morv::ItemKind::Int,atoi(text))
#define atol(text) (morv::item_kind=morv::ItemKind::Long,atol(text))
#define atof(text) (morv::item_kind=morv::ItemKind::Real,atof(text))

void NewData(int a,char Dat[])
{
switch(a)
{
}
}
