// What saving and closing have in common for the project and the system.
//
// File dialogs, and some boxes, have no owner: while they wait the menus stay usable. What a
// command found before may then be closed, or another document be open, when they return.
#pragma once

#include "shell/core/record_text.h"

#include <windows.h>

// A document as these functions see it.
struct SavedDocument {
    std::int32_t& state;    // 1 while it is open
    std::int32_t& modified; // 1 when changed since it was last saved
    HWND& window;
    char (&name)[kNameSize];
    bool (*untitled)();
    void (*rename)(const char* name); // with its rows
    int (*save)();                    // not 0 when that failed, which is shown
    const char* filter;               // of the save dialog, as are the next two
    const char* title;
    const char* extension;
    bool forgets_when_cancelled; // a cancelled Save of an untitled one counts as saved
};

enum class Saved { Done, Cancelled, Failed, Gone };

// Says later whether the document that is open now is still open.
inline auto StillOpen(const SavedDocument& document) {
    return [&document, window = document.window] {
        return document.state == 1 && document.window == window;
    };
}

// Asks for a name and saves under it. A failure leaves the name before.
Saved SaveDocumentAs(const SavedDocument& document);

// Saves under the document's name; an untitled one asks for a name.
Saved SaveDocument(const SavedDocument& document);

// Asks whether to save a changed document. False when it must not be closed now: the user
// cancelled, what was to be saved could not be, or it is gone already. A cancelled file dialog
// gives the changes up.
bool MayCloseDocument(const SavedDocument& document, HWND owner, const char* text,
                      const char* caption);
