// The main program of an expert system without a window, for tests and for systems without Windows:
// it reads commands from its input and writes what there is to tell. It has no clock; the command
// tick runs one. A line that begins with '#' is told as it is, so that what follows can be found in
// the output. It ends with its input, with 1 when a command could not be done. With the word /trace
// each rule tells what it does.
#include "commands.h"
#include "session.h"
#include "shell.h"

#include <cstdio>
#include <iostream>

void morv::Output(const std::string& line) {
    std::fputs((line + '\n').c_str(), stdout);
}

int main(int count, char** words) {
    if (count > 1 && std::string(words[1]) == "/trace")
        morv::SetTrace(true);
    const auto tick = [](long count) {
        for (; count > 0; --count)
            morv::RunTick();
    };
    const auto hold = [](bool) {
        morv::Output("there is no clock: ticks run by the command tick");
    };
    bool done = true;
    for (std::string line; std::getline(std::cin, line); std::fflush(stdout)) {
        if (!line.empty() && line[0] == '#')
            morv::Output(line);
        else
            done = morv::DoCommand(line, {tick, hold}) && done;
    }
    return done ? 0 : 1;
}
