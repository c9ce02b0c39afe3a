// Asking for a name and saving under it, the same way for everything that can be saved: the
// project, a system, texts, rules, and lists of tags, results and DDE items.
//
// The save dialog has no owner: while it is open, what is to be saved can be closed or changed.
#pragma once

#include "shell/services/file_dialogs.h"

#include <functional>
#include <string>
#include <windows.h>

// What a save dialog shows.
struct NameQuestion {
    const char* filter;
    const char* title;
    const char* extension;
};

// Something that can be saved. The functions mean the one that was there when this was made.
struct Savable {
    HWND subject; // its window: two requests with the same one are about the same thing
    NameQuestion question;
    std::function<bool()> alive;    // it is still there
    std::function<bool()> has_file; // it can be saved without a name being asked for
    // Take a name and write, and write under the name it has. False when that failed, which was
    // shown.
    std::function<bool(const std::string& path)> save_as;
    std::function<bool()> save;
};

enum class Saved {
    Done,
    Cancelled, // no name was given
    Failed,    // it could not be written, which was shown
    Gone,      // it was closed while its dialog was open: nothing was written
    Asking,    // its dialog is open already, and now in front
};

// Asks for a name and saves under it.
Saved AskAndSave(const Savable& savable);

// Saves; what has no file asks for a name.
Saved Save(const Savable& savable);
