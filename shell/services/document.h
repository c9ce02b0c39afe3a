// What the commands of the project and of the system have in common.
//
// File dialogs, and some boxes, have no owner: while they wait the menus stay usable. What a
// command found before may then be closed, or another document be open, when they return.
#pragma once

#include "shell/core/record_text.h"
#include "shell/services/ask_and_save.h"

#include <span>
#include <windows.h>

// A document as these functions see it.
struct Document {
    std::int32_t& state;    // 1 while it is open
    std::int32_t& modified; // 1 when changed since it was last saved
    HWND& window;
    char (&name)[kNameSize];
    bool (*untitled)();
    void (*rename)(const char* name); // with its rows
    int (*save)();                    // not 0 when that failed, which is shown
    NameQuestion question;
    bool forgets_when_cancelled; // a cancelled Save of an untitled one counts as saved
    const char* not_open;        // what is shown when none is open
};

// Says later whether the document that is open now is still open.
inline auto StillOpen(const Document& document) {
    return [&document, window = document.window] {
        return document.state == 1 && document.window == window;
    };
}

// Shows in a box with this caption that no such document is open, unless one is.
bool Opened(const Document& document, HWND owner, const char* caption);

// Shows a refusal when the reason for it is there; returns whether it is.
bool Refused(HWND owner, bool reason, const char* text, const char* caption);

// Asks for a file to add to the document. `may_add`, which shows why not, is asked again
// afterwards: another of these dialogs may have been used meanwhile.
template <class MayAdd>
bool ChooseFile(const Document& document, MayAdd may_add, const NameQuestion& question, char* name,
                unsigned flags = 0) {
    const auto still_open = StillOpen(document);
    return may_add() &&
           OpenDlg(question.filter, question.title, question.extension, name, flags) == 0 &&
           still_open() && may_add();
}

// A section of a document's list, seen from one of the list's rows.
struct RowSection {
    int part;               // where the row lies in it: 1 the heading, 2 an item, 0 outside
    int (*remove)(int row); // removes one item, or with -1 all
};

// Removes what row `row` shows: a whole section by its heading, else the item. False when the row
// lies in none of the sections.
bool RemoveRow(int row, std::span<const RowSection> sections);

// Asks for a name and saves under it. A failure leaves the name before.
Saved SaveDocumentAs(const Document& document);

// Saves under the document's name; an untitled one asks for a name.
Saved SaveDocument(const Document& document);

// Asks whether to save a changed document. False when it must not be closed now: the user
// cancelled, what was to be saved could not be, it is gone already, or it is being asked for
// already. A cancelled file dialog gives the changes up.
bool MayCloseDocument(const Document& document, HWND owner, const char* text, const char* caption);
