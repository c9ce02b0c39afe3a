///////////////////////////////////////////////////
//                    ddecom                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
/* ddecom3.dat */

Informacio DDEinfo;//- La estructura informacio
char *Items[]={
"Label",
"Level",
"Rate",
"Count",
"Ticks",
"Odd"
};
/* ddecom4.dat */

void NewData(int a,char Dat[])
{
switch(a)
{
	case 0:
strcpy(DDEinfo.Label,Dat);
	break;
	case 1:
		DDEinfo.Level=atof(Dat);
	break;
	case 2:
		DDEinfo.Rate=atof(Dat);
	break;
	case 3:
		DDEinfo.Count=atoi(Dat);
	break;
	case 4:
		DDEinfo.Ticks=atol(Dat);
	break;
	case 5:
		DDEinfo.Odd	break;
}
}
