// What the program around the rules does, whether it has a window or a console: ticks, pokes, and
// what is told of them.
#ifndef MORV_SESSION
#define MORV_SESSION

#include <string>

namespace morv {

// Runs a tick. While one runs it does nothing: in a box that user code opens the clock goes on.
void RunTick();
bool InTick();

enum class From { Program, User };

// Pokes an item. A value that comes while a tick runs is for the next one. Returns whether the item
// takes it; tells the value, or why it is refused. Of other programs, which may send the same every
// second, only what differs from the one before is told.
bool PokeItem(const std::string& item, const std::string& text, From from = From::Program);

} // namespace morv

#endif
