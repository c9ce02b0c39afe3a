#include "shell/core/messages.h"

#include <cstdio>
#include <utility>

namespace {

Answer PrintMessage(const Message& message) {
    std::fprintf(stderr, "%s: %s\n", message.caption.c_str(), message.text.c_str());
    return Answer::Cancel;
}

MessageShower g_shower = PrintMessage;

} // namespace

Answer ShowMessage(WindowHandle owner, const std::string& text, const std::string& caption,
                   Buttons buttons, Icon icon) {
    return g_shower(Message{owner, text, caption, buttons, icon});
}

MessageShower SetMessageShower(MessageShower shower) {
    return std::exchange(g_shower, std::move(shower));
}
