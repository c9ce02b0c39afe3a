#include "build/execute.h"

#include "build/build_names.h"
#include "build/compile.h"
#include "build/debug.h"
#include "shell/process.h"
#include "shell/VARMORV.h"

void ExecMORV(HWND hwnd) {
    DebugMORV(hwnd);
    if (CompileMORV(hwnd) != 0)
        return;
    const std::string program = BuildNames(Project.MORVName).program + ".exe";
    // Its only argument is an empty one.
    StartProcess(program, '"' + program + "\" \"\"");
}
