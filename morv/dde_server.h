// The DDE server of a built program.
#ifndef MORV_DDE_SERVER
#define MORV_DDE_SERVER

// Answers under the names of MorvApi.h from now on: a poke to an item goes to NewData, which the
// next tick sees. Returns whether it could be started.
bool StartDdeServer();
void StopDdeServer();

#endif
