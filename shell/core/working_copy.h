// A document's side file that is edited as a working copy; it gets its place beside the document
// when that is saved.
#pragma once

#include "shell/core/replacement.h"

#include <string>

struct WorkingCopy {
    std::string working; // may be named and never written, or be `saved` after a cancelled edit
    std::string saved;   // the file in force before, which may be another document's as well
    std::string target;  // the place beside the document
    // Its dialog wrote the copy since the document was opened. One that lies there otherwise is of
    // an earlier run or of another document with this name: it is no source.
    bool written = false;
};

// The file in force once the copy is at its place.
std::string NameAfterMove(const WorkingCopy& copy);

// Adds to `files` what brings the copy to its place. Where there is nothing to put, the file that
// is there stays. Returns false when the copy cannot be read, or its place has a name that is too
// long for a document.
bool AddMove(files::Replacement& files, const WorkingCopy& copy);

// Removes the working file of a copy that has got to its place.
void RemoveMoved(const WorkingCopy& copy);
