#include "shell/core/working_copy.h"

#include "shell/core/files.h"

namespace {

// An editor left without writing its copy changes nothing: the file in force stays so.
bool KeepsSaved(const WorkingCopy& copy) {
    return !copy.working.empty() && !files::Exists(copy.working.c_str()) &&
           files::Exists(copy.saved.c_str());
}

// A rename would also replace a file that is marked read-only, so ask for write access first.
bool MayReplace(const char* path) {
    if (!files::Exists(path))
        return true;
    const int han = files::Open(path, files::Mode::Update);
    files::Close(han);
    return han != -1;
}

} // namespace

std::string NameAfterMove(const WorkingCopy& copy) {
    return KeepsSaved(copy) ? copy.saved : copy.target;
}

bool MoveToPlace(const WorkingCopy& copy) {
    const char* target = copy.target.c_str();
    if (copy.working == copy.target || KeepsSaved(copy))
        return true;
    if (!MayReplace(target))
        return false;
    // With nothing to put there, a file that somebody else left at the place must not be taken for
    // this document's.
    if (!files::Exists(copy.working.c_str()))
        return !files::Exists(target) || files::Remove(target);
    if (copy.working != copy.saved)
        return files::RenameOver(copy.working.c_str(), target);
    // A cancelled edit leaves the saved file as the working copy; it still belongs to the document
    // that was saved before under another name.
    std::string bytes;
    return files::ReadWhole(copy.working.c_str(), files::Mode::Read, bytes) &&
           files::ReplaceWhole(target, bytes);
}
