//////
#include "blocksR.h"
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
Inference_Engine_1 blocks;

//- Extern Functions

//- Systems Implementation
Begin Inference_Engine_1 ZkSystem


	//- Facts declaration
	static DATAFACT *PF, A, B, V, Sum, W1, W2;
	//- Local Var Declaration
	double half;
	//- Local Var Declaration
	long unused;



	set_opposites(UP, DOWN);

//- Datafact
	A.name = 1;
	A.type = DETECTION;
	sprintf (A.description, "Reading, 100 % of it");
	sprintf (A.fact_value.units, "%");
	A.fact_value.inf_limit = 0;
	A.fact_value.sup_limit = 100;
	A.fact_value.step_v = 0.5;
	A.fact_value.lowest = 10;
	A.fact_value.low = 25;
	A.fact_value.normal = 50;
	A.fact_value.high = 75;
	A.fact_value.highest = 90;

//- Datafact
	B.name = 2;
	B.type = DETECTION;
	sprintf (B.description, "");
	sprintf (B.fact_value.units, "bar");
	B.fact_value.inf_limit = 0;
	B.fact_value.sup_limit = 16;
	B.fact_value.step_v = 0.5;
	B.fact_value.lowest = 1.6;
	B.fact_value.low = 4;
	B.fact_value.normal = 8;
	B.fact_value.high = 12;
	B.fact_value.highest = 14.4;

//- Datafact
	V.name = 3;
	V.type = ACTION;
	sprintf (V.description, "Valve");
	sprintf (V.fact_value.units, "%");
	V.fact_value.inf_limit = 0;
	V.fact_value.sup_limit = 100;
	V.fact_value.step_v = 0.5;
	V.fact_value.lowest = 10;
	V.fact_value.low = 25;
	V.fact_value.normal = 50;
	V.fact_value.high = 75;
	V.fact_value.highest = 90;

//- Datafact
	Sum.name = 4;
	Sum.type = DIAGNOSTIC;
	sprintf (Sum.description, "A and B");
	sprintf (Sum.fact_value.units, "");
	Sum.fact_value.inf_limit = 0;
	Sum.fact_value.sup_limit = 1000;
	Sum.fact_value.step_v = 0.5;
	Sum.fact_value.lowest = 100;
	Sum.fact_value.low = 250;
	Sum.fact_value.normal = 500;
	Sum.fact_value.high = 750;
	Sum.fact_value.highest = 900;

//- Datafact
	W1.name = 5;
	W1.type = WEAR;
	sprintf (W1.description, "First");
	sprintf (W1.fact_value.units, "h");
	W1.fact_value.inf_limit = 0;
	W1.fact_value.sup_limit = 10;
	W1.fact_value.step_v = 0.5;
	W1.fact_value.lowest = 1;
	W1.fact_value.low = 2.5;
	W1.fact_value.normal = 5;
	W1.fact_value.high = 7.5;
	W1.fact_value.highest = 9;

//- Datafact
	W2.name = 6;
	W2.type = WEAR;
	sprintf (W2.description, "Second");
	sprintf (W2.fact_value.units, "h");
	W2.fact_value.inf_limit = 0;
	W2.fact_value.sup_limit = 10;
	W2.fact_value.step_v = 0.5;
	W2.fact_value.lowest = 1;
	W2.fact_value.low = 2.5;
	W2.fact_value.normal = 5;
	W2.fact_value.high = 7.5;
	W2.fact_value.highest = 9;


// - System Local Vars
half=0.5;
unused=0;

//- Deduce Facts Values
A.assign((double)DDEinfo.A,DDEinfo.CA);
deduce(&A);

B.assign((double)DDEinfo.B,DDEinfo.CB);
deduce(&B);

W1.assign((double)DDEinfo.W1,NORMAL);
deduce(&W1);

W2.assign((double)DDEinfo.W2,FULL);
deduce(&W2);

V.assign((double)0,NULL);
deduce(&V);

Rule 1
  // If and Else, with EndIf in a comment and in a text
  If (A.value() > A.fact_value.high)
  Then
    deduce(&IF_TRUE, VERYHIGH);
    put_box("A is high: EndIf");
  Else
    deduce(&IF_FALSE, VERYHIGH);
  EndIf
EndRule
Rule 2
  IfOr (A.value() > 50.0, /* the
        other, one */ B.value() > 8.0)
  Then deduce(&OR_TRUE); Else deduce(&OR_FALSE); EndIfOr
EndRule
Rule 3
  IfXor (A.value() > 50.0, B.value() > 8.0)
  Then
    deduce(&XOR_TRUE, FULL);
  Else
    deduce(&XOR_FALSE, FULL);
  EndIfXor
EndRule
Rule 4
  IfAny (WEAR, PF->value() > PF->fact_value.high)
  Then
    deduce(&ANY_WORN, FULL);
    retract(&NONE_WORN);
    put_box(PF->description);
  Otherwise
    deduce(&NONE_WORN, FULL);
    retract(&ANY_WORN);
  EndIfAny
EndRule
Rule 5
  ForAll (WEAR)
    If (PF->outside()) Then
      PF->assign(PF->fact_value.sup_limit, FULL);
    EndIf
  EndForAll
EndRule
Rule 6
  Sum.assign(A.value() + B.value() * half * 2, HIGH);
  If (A.value() > 50.0)
  Then
    V.assign(80.0, FULL);
    If (B.value() > 8.0) Then
      deduce(&NESTED, FULL);
    EndIf
  EndIf
EndRule
Rule 7
  If (A.value() > A.value(1)) Then deduce(&ROSE, FULL); Else retract(&ROSE); EndIf
  If (IF_TRUE.holds(2)) Then deduce(&LATE, FULL); EndIf
EndRule
Rule 8
  If (B.value() > 4.0) Then deduce(&UP, NORMAL); EndIf
  If (B.value() < 12.0) Then deduce(&DOWN, DDEinfo.W2 > 5 ? VERYHIGH : LOW); EndIf
EndRule


EndSystem


//////////      MORV  Main       ////////////
void MORVmain()
{
	blocks.engine();
}
