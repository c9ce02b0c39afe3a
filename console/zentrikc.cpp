// zentrikc: Zentrik's projects without a window.
#include "console/command_line.h"

#include <iostream>

int main(int count, char** words) {
    std::ios::sync_with_stdio(false);
    return console::Run({words + 1, words + count}, {std::cout, std::cerr});
}
