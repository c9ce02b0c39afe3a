#include "shell/core/working_copy.h"

#include "shell/core/files.h"
#include "shell/core/paths.h"
#include "shell/core/record_text.h"

namespace {

bool IsThere(const std::string& path) {
    return files::Exists(path.c_str());
}

// There is a content to put: the copy that was written, or the saved file that a cancelled edit
// left as the copy.
bool HasContent(const WorkingCopy& copy) {
    return (copy.written || copy.working == copy.saved) && IsThere(copy.working);
}

// A file at the place that is not the document's own after its folder was moved.
bool IsForeign(const WorkingCopy& copy) {
    return IsThere(copy.target) && Stem(copy.saved) != Stem(copy.target);
}

} // namespace

std::string NameAfterMove(const WorkingCopy& copy) {
    if (copy.working == copy.target || HasContent(copy))
        return copy.target;
    return IsThere(copy.saved) || IsForeign(copy) ? copy.saved : copy.target;
}

bool AddMove(files::Replacement& files, const WorkingCopy& copy) {
    if (NameAfterMove(copy).size() >= kNameSize)
        return files::NameTooLong();
    if (copy.working == copy.target || !HasContent(copy))
        return true;
    std::string bytes;
    if (!files::ReadWhole(copy.working.c_str(), files::Mode::Read, bytes))
        return false;
    files.Put(copy.target, bytes, files::Before::Kept);
    return true;
}

void RemoveMoved(const WorkingCopy& copy) {
    // The saved file may belong to another document, too; and a document may be saved in the folder
    // of the working copies.
    if (copy.written && copy.working != copy.saved &&
        !files::SameFile(copy.working.c_str(), copy.target.c_str()))
        files::Remove(copy.working.c_str()); // one that cannot go does no harm
}
