///////////////////////////////////////////////////
//                    bareR                     //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#ifndef TAD_RULES
#define TAD_RULES

#define FALSE	0
#define TRUE	1


#include <dos.h>


#include "consts.h"
#include "shell.h"
#include "datafact.h"
#include "dfactres.h"
#include "inf_eng.h"


class DATAFACT;
class INFERENCE_ENGINE;
class Inference_Engine_1:public INFERENCE_ENGINE{
	public:
		Inference_Engine_1 () {sprintf (description, "INF_1");};
		int engine();
};
///////////////    Declaracio del DATAFACTRESULT    ///////////////
DATAFACTRESULT
#endif
