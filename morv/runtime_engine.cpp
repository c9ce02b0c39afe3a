// All of the runtime that needs no window, compiled as one: most of the time of each goes into the
// headers that all of them read.
#include "commands.cpp"
#include "datafact.cpp"
#include "dfactres.cpp"
#include "explain.cpp"
#include "inf_eng.cpp"
#include "items.cpp"
#include "justify.cpp"
#include "names.cpp"
#include "program_log.cpp"
#include "session.cpp"
