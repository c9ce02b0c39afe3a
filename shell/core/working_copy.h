// A document's side file that is edited as a working copy; it gets its place beside the document
// when that is saved.
#pragma once

#include <string>

struct WorkingCopy {
    std::string working; // may be named and never written, or be `saved` after a cancelled edit
    std::string saved;   // the file in force before, which may be another document's as well
    std::string target;  // the place beside the document
};

// The file in force after MoveToPlace.
std::string NameAfterMove(const WorkingCopy& copy);

// Moves a working copy to its place. Returns false when that fails; the files are then as before.
bool MoveToPlace(const WorkingCopy& copy);
