// The controls of the utility's window.
#ifndef ZKCC_WINDOW_IDS
#define ZKCC_WINDOW_IDS

#define ID_WORK 100    // what is being done, or that it failed
#define ID_MESSAGE 101 // the first message whole
#define ID_MESSAGES 102

#endif
