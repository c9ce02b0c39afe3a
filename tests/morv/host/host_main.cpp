// Stands in for the API main and DDE on the host. Each argument is "tick", or item=value for a
// poke.
#include "ddecom.h"
#include "explain.h"
#include "shell.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

void morv::Output(const std::string& line) {
    std::puts(line.c_str());
}

void put_box(const char* text) {
    std::printf("> %s\n", text);
}

void put_box(char* text) {
    put_box(static_cast<const char*>(text));
}

static void TellWhatHolds(int tick) {
    std::string holding;
    for (const std::string& name : morv::Names()) {
        const std::string state = morv::StateText(name);
        if (state.compare(0, 2, "1 ") == 0)
            holding += (holding.empty() ? "" : ", ") + name + " (" + state.substr(2) + ")";
    }
    std::printf("Tick %d: %s\n", tick, holding.empty() ? "nothing holds" : holding.c_str());
}

int main(int count, char** words) {
    int ticks = 0;
    for (int i = 1; i < count; ++i) {
        char* value = std::strchr(words[i], '=');
        if (value == nullptr) {
            morv::Tick();
            TellWhatHolds(++ticks);
            continue;
        }
        NewData(std::atoi(words[i]), value + 1);
        std::strcpy(hora, "12:00:00");
    }
}
