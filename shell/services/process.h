// Starting other programs. Tests put their own function in its place to read the exact line.
#pragma once

#include <functional>
#include <string>

using ProcessStarter = std::function<void(const std::string& program, const std::string& line)>;

// Starts a command line as a process of its own and does not wait for it; a failure is not
// reported. With a `program` that file is run and `line` is what it receives.
void StartProcess(const std::string& program, const std::string& line);

// Sets what starts processes from now on and returns what did before.
ProcessStarter SetProcessStarter(ProcessStarter starter);
