///////////////////////////////////////////////////
//                    consts                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
/* consts1.dat */

#define MAXNUMTICKS	30	//Maxim Number of TICKS to Save in Variable History

/* consts2.dat */


enum DATAFACTTYPE {NOTYPE=0, DETECTION, DIAGNOSTIC, ACTION ,PRESS,FLOW,TEMP};

/* consts3.dat */
