// zentrikc: Zentrik's projects without a window.
#include "console/command_line.h"

#include <iostream>

int main(int count, char** words) {
    std::ios::sync_with_stdio(false);
    const int code = console::Run({words + 1, words + count}, {std::cout, std::cerr});
    if (std::cout.flush())
        return code;
    std::cerr << "zentrikc: the output cannot be written\n";
    return console::kStopped;
}
