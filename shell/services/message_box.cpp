#include "shell/services/message_box.h"

#include "shell/core/messages.h"

#include <windows.h>

namespace {

UINT Style(const Message& message) {
    UINT style = MB_OK;
    if (message.buttons == Buttons::YesNo)
        style = MB_YESNO;
    else if (message.buttons == Buttons::YesNoCancel)
        style = MB_YESNOCANCEL;
    if (message.icon == Icon::Stop)
        style |= MB_ICONSTOP;
    else if (message.icon == Icon::Exclamation)
        style |= MB_ICONEXCLAMATION;
    return style;
}

Answer ShowBox(const Message& message) {
    // With an owner that is gone there would be no box at all.
    const HWND owner = IsWindow(message.owner) ? message.owner : nullptr;
    switch (MessageBoxA(owner, message.text.c_str(), message.caption.c_str(), Style(message))) {
    case IDOK:
        return Answer::Ok;
    case IDYES:
        return Answer::Yes;
    case IDNO:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

} // namespace

void UseMessageBoxes() {
    SetMessageShower(ShowBox);
}
