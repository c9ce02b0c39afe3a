// The generated rules source: the facts, variables, opposites and rules of every system, and the
// main function.
#pragma once

#include "project/core/project_file.h"
#include "shell/core/file_helpers.h"
#include "system/core/system_file.h"

// Creates `RulesCpp` (a full path), whose first include line names `fname`. Each system file's head
// is read into `last_read`, which keeps the last one. Returns 0, or -1 after showing why in a box
// owned by `owner`; what was written until then stays.
int CrearRulesCpp(const ProjectRecord& project, SystemHead& last_read, const char* RulesCpp,
                  const char* fname, WindowHandle owner);

// Adds the code of an extern file, whose #include lines went into the header. Returns 0, or -1
// after closing `han` and showing why.
int CopyExt(OutputFile& han, const char* file);
