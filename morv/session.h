// What the program around the rules does, whether it has a window or a console: ticks, pokes, and
// what is told of them.
#ifndef MORV_SESSION
#define MORV_SESSION

#include <string>

namespace morv {

// Runs a tick. While one runs it does nothing: in a box that user code opens the clock goes on.
void RunTick();
bool InTick();

// Pokes an item. A value that comes while a tick runs is for the next one. Returns whether the item
// takes it; tells a value that differs from the one before, and why one is refused.
bool PokeItem(const std::string& item, const std::string& text);

} // namespace morv

#endif
