///////////////////////////////////////////////////
//                    ddecom                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
/* ddecom1.dat */
#define numItems 6
struct Informacio
{
	char Label;
	float Level;
	double Rate;
	int Count;
	long Ticks;
	short Odd;
};
/* ddecom2.dat */
