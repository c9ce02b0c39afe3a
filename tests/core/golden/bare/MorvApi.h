///////////////////////////////////////////////////
//                   MorvApi                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#ifndef TAD_ZENPROJECT
#define TAD_ZENPROJECT
char ApZk[255]={"apibare"};
char ItemZk[255]={""};
#endif
