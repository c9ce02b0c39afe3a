///////////////////////////////////////////////////
//                    plantR                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#include "plantR.h"
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
Inference_Engine_1 first;
Inference_Engine_2 second;

//- Extern Functions

#include <math.h>
  #include "own.h" // two
int f() { return own(2); }


//- Systems Implementation
Begin Inference_Engine_1 ZkSystem


	//- Facts declaration
	static DATAFACT *PF, Boiler, Valve;
	//- Local Var Declaration
	long count;
	//- Local Var Declaration
	double ratio;



	set_opposites(OVERHEATED, CHILLED);
	set_opposites(OPENED, SHUT);
//- Datafact
	Boiler.name = 1;
	Boiler.type = TEMP;
	sprintf (Boiler.description, "About Boiler");
	sprintf (Boiler.fact_value.units, "Celsius");
	Boiler.fact_value.inf_limit = -273.15;
	Boiler.fact_value.sup_limit = 1e+06;
	Boiler.fact_value.step_v = 0.5;
	Boiler.fact_value.lowest = -10;
	Boiler.fact_value.low = 0;
	Boiler.fact_value.normal = 20.25;
	Boiler.fact_value.high = 1.2346e+05;
	Boiler.fact_value.highest = 1e-07;

//- Datafact
	Valve.name = 1.2346e+05;
	Valve.type = TEMP;
	sprintf (Valve.description, "About Valve");
	sprintf (Valve.fact_value.units, "Celsius");
	Valve.fact_value.inf_limit = -273.15;
	Valve.fact_value.sup_limit = 1e+06;
	Valve.fact_value.step_v = 0.5;
	Valve.fact_value.lowest = -10;
	Valve.fact_value.low = 0;
	Valve.fact_value.normal = 20.25;
	Valve.fact_value.high = 1.2346e+05;
	Valve.fact_value.highest = 1e-07;


// - System Local Vars
count=0;
ratio=1.5;

//- Deduce Facts Values
Boiler.assign((double)count,FULL);
deduce(&Boiler);

Valve.assign((double)3,1);
deduce(&Valve);


// before
Rule 1
If (Boiler.value() > Boiler.fact_value.high)
Then deduce(&OVERHEATED, FULL);
Else Boiler.assign(ratio * count + f(), FULL);
EndIf
EndRule

// after ZkRules


EndSystem
//- Systems Implementation
Begin Inference_Engine_2 ZkSystem


	//- Facts declaration
	static DATAFACT *PF;




Rule 1
EndRule


EndSystem


/////////////////////////////////////////////
//////////      MORV  Main       ////////////
/////////////////////////////////////////////
void MORVmain()
{
	first.engine();
	second.engine();
}
