#ifndef ZK_DDECOM
#define ZK_DDECOM
#define numItems 6
struct Informacio
{
	double A;
	double CA;
	double B;
	double CB;
	double W1;
	double W2;
};
extern Informacio DDEinfo;
#endif
