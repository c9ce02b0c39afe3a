// The DDE server of a built program.
#ifndef MORV_DDE_SERVER
#define MORV_DDE_SERVER

// Answers under the names of MorvApi.h from now on. A poke goes to an item, and the next tick sees
// it; a request or a hot link is for a fact, "12.5 HIGH", or a result, "1 FULL". Returns whether it
// could be started.
bool StartDdeServer();
void StopDdeServer();

// Sends what a tick changed to those who have a hot link to it.
void AdviseOfChanges();

#endif
