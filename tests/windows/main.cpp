// Tests over real windows, in the process.

#include "shell/services/handles.h"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    hInst = GetModuleHandleA(nullptr);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
