#include "shell/services/guarded.h"

#include "shell/core/messages.h"

void TellOutOfMemory() {
    constexpr char kText[] = "Not enough memory";
    constexpr char kCaption[] = "WARNING";
    try {
        ShowMessage(nullptr, kText, kCaption, Buttons::Ok, Icon::Stop);
    } catch (const std::exception&) {
        // Not even for the texts of the box.
        MessageBoxA(nullptr, kText, kCaption, MB_OK | MB_ICONSTOP);
    }
}
