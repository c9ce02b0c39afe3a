// The window and the DDE server, compiled as one: most of the time of each goes into the headers of
// Windows.
#include "dde_server.cpp"
#include "entry_line.cpp"
#include "output_list.cpp"
#include "program_window.cpp"
