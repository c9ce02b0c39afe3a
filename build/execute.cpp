#include "build/execute.h"

#include "build/compile.h"
#include "build/core/build_names.h"
#include "build/debug.h"
#include "project/ZENPRO.h"
#include "shell/services/process.h"

void ExecMORV(HWND hwnd) {
    DebugMORV(hwnd);
    if (CompileMORV(hwnd) != 0)
        return;
    const std::string program = BuildNames(Project.MORVName).program + ".exe";
    // Its only argument is an empty one.
    StartProcess(program, '"' + program + "\" \"\"");
}
