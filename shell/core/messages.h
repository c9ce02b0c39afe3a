// The one way to show a message box. The program shows a real one; tests and console programs put
// their own function in its place, so that order and wording of boxes can be checked anywhere.
#pragma once

#include "shell/core/window_handle.h"

#include <functional>
#include <string>

enum class Buttons { Ok, YesNo, YesNoCancel };
enum class Icon { None, Stop, Exclamation };
enum class Answer { Ok, Cancel, Yes, No };

struct Message {
    WindowHandle owner; // none: the box disables no window
    std::string text;
    std::string caption;
    Buttons buttons;
    Icon icon;
};

using MessageShower = std::function<Answer(const Message&)>;

// Shows a box and returns the button pressed. Where a shower cannot show anything, Cancel.
Answer ShowMessage(WindowHandle owner, const std::string& text, const std::string& caption,
                   Buttons buttons = Buttons::Ok, Icon icon = Icon::None);

// Sets what shows boxes from now on and returns what did before. Before the first call texts go
// to the standard error output and the answer is Cancel.
MessageShower SetMessageShower(MessageShower shower);
