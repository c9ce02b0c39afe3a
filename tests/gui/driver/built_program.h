// The program of a project: what the compiler utility makes and Execute starts.
#pragma once

#include "tests/gui/driver/app.h"

#include <string>
#include <utility>
#include <vector>

namespace gui {

// Runs a menu command that begins with the rule check: Debug or Execute.
void CommandWithCheck(App& app, int id);

class BuiltProgram {
public:
    // The project `name` in `folder`, which `zentrik` has open.
    BuiltProgram(const Program& zentrik, const std::string& folder, const std::string& name);

    // Takes away what earlier runs left, so that only what comes from now on is waited for.
    void Forget() const;
    void ForgetCompiler() const; // only what the compiler utility says

    // Waits until the compiler utility is done; fails when it made no program.
    void AwaitMade() const;

    // Waits until the program's window is there and its log, which it writes once a second, holds
    // `text`. Returns the window.
    HWND AwaitLine(const std::string& text) const;

    // Pokes items by DDE, each a name and a value.
    void Poke(const std::string& conversation,
              const std::vector<std::pair<const char*, const char*>>& items) const;

    // Types a command into the program's window.
    void Type(HWND window, const std::string& line) const;

    // Closes the program. Returns its whole log.
    std::string Close(HWND window) const;

private:
    const Program& zentrik_;
    std::string name_, path_, compiler_log_; // the path has no extension
};

} // namespace gui
