///////////////////////////////////////////////////
//                    bareR                     //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#include "bareR.h"
#include "ddecom.h"

#define si 1
#define no 0

//- Informacio del sistema en concret
extern Informacio DDEinfo;
extern char *Items[];
extern void put_box(char *);
extern char hora[20];
extern int ActivatSB;

//- System Declaration
Inference_Engine_1 alone;

//- Extern Functions

//- Systems Implementation
Begin Inference_Engine_1 ZkSystem


	//- Facts declaration
	static DATAFACT *PF;




Rule 1
put_box("round");
EndRule


EndSystem


/////////////////////////////////////////////
//////////      MORV  Main       ////////////
/////////////////////////////////////////////
void MORVmain()
{
	alone.engine();
}
