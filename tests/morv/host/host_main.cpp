// Stands in for the API main and DDE on the host. Each argument is "tick", or item=value for a
// poke.
#include "ddecom.h"
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

int main(int count, char** words) {
    for (int i = 1; i < count; ++i) {
        char* value = std::strchr(words[i], '=');
        if (value == nullptr) {
            morv::Tick();
            continue;
        }
        NewData(std::atoi(words[i]), value + 1);
        std::strcpy(hora, "12:00:00");
    }
}
