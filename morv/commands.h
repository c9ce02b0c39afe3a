// The commands that are typed into a running program.
#ifndef MORV_COMMANDS
#define MORV_COMMANDS

#include <functional>
#include <string>

namespace morv {

// What the program around does itself.
struct Front {
    std::function<void(long)> tick; // runs so many ticks
    std::function<void(bool)> hold; // stops the clock, or lets it go on
};

// Does what a line says; what there is to tell goes to Output. Returns whether it could be done; a
// line that could not says why.
bool DoCommand(const std::string& line, const Front& front);

} // namespace morv

#endif
