///////////////////////////////////////////////////
//                    ddecom                    //
///////////////////////////////////////////////////
//         Code Create by Zentrik 2.0a          //
//    Copyright (c) 1999 the Zentrik project    //
//         Author: the Zentrik project          //
//          Tutor: the Zentrik project          //
///////////////////////////////////////////////////
#ifndef ZK_DDECOM
#define ZK_DDECOM

// The items that other programs poke.
#define numItems 0
struct Informacio
{
};


extern Informacio DDEinfo;
extern char *Items[];
extern char hora[20];
extern int ActivatSB;

// Takes item number `a`, whose value has arrived as a text.
void NewData(int a,char Dat[]);

// What NewData made of the text it took last.
namespace morv {
enum class ItemKind {Text, Int, Long, Real};
extern ItemKind item_kind;
}

#endif
