// The generated rules header: a class for each system's engine and the list of results.
#pragma once

#include "project/core/project_file.h"
#include "shell/core/window_handle.h"

// Creates `RulesH` (a full path). Returns 0, or -1 after showing why in a box owned by `owner`;
// what was written until then stays.
int CrearRulesH(const ProjectRecord& project, const char* RulesH, WindowHandle owner);
