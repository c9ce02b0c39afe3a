// How a generated file ends: finished, or given up with a message.
#pragma once

#include "shell/core/file_helpers.h"

// Closes a finished file. Returns 0, or -1 after showing why it could not be written.
int Finish(OutputFile& han);

// Closes a file that stays unfinished because another file cannot be opened, shows `text` and then
// the reason. Returns -1.
int GiveUp(OutputFile& han, WindowHandle owner, const char* text, const char* caption);
