#include "shell/core/replacement.h"

#include "shell/core/files.h"

#include <algorithm>
#include <cerrno>

namespace files {

namespace {

// A name in the folder of `path` that no file has: one that looks like a left-over may be the
// user's. It is hardly longer than the path, which may be as long as the system allows.
std::string NameBeside(const std::string& path, int number) {
    constexpr std::size_t kStart = 8; // of the file's name, to know it by
    const std::size_t folder = path.find_last_of("\\/:") + 1;
    return path.substr(0, std::min(path.size(), folder + kStart)) + ".~" + std::to_string(number);
}

// Empty where every name is taken: beside a device all are that device.
std::string FreeNameBeside(const std::string& path) {
    constexpr int kMost = 1000;
    for (int number = 1; number <= kMost; ++number)
        if (std::string name = NameBeside(path, number); !Exists(name.c_str()))
            return name;
    SetLastError(EACCES);
    return {};
}

// Creates a file beside `path`. Returns its descriptor, or -1.
int CreateBeside(const std::string& path, std::string& name) {
    for (;;) {
        name = FreeNameBeside(path);
        if (name.empty())
            return -1;
        const int han = Open(name.c_str(), Mode::CreateNew);
        if (han != -1 || LastError() != EEXIST)
            return han;
    }
}

// Writes and flushes what an open file is to hold, and closes it.
bool Fill(int han, std::string_view content) {
    const bool ok = WriteAll(han, content) && Flush(han);
    return Close(han) && ok;
}

// Writes a new file beside `path`. Returns its name, empty on failure.
std::string WriteBeside(const std::string& path, std::string_view content) {
    std::string name;
    const int han = CreateBeside(path, name);
    if (han == -1)
        return {};
    if (Fill(han, content))
        return name;
    const int reason = LastError();
    Remove(name.c_str());
    SetLastError(reason);
    return {};
}

// Gives a file another content where it stands. Room that it has is written before it is cut.
bool Rewrite(const std::string& path, std::string_view content) {
    const int han = Open(path.c_str(), Mode::Update);
    if (han == -1)
        return false;
    const bool ok = WriteAll(han, content) &&
                    ChangeSize(han, static_cast<std::int64_t>(content.size())) && Flush(han);
    return Close(han) && ok;
}

bool MayChange(const std::string& path) {
    const int han = Open(path.c_str(), Mode::Update);
    return han != -1 && Close(han);
}

// Takes away what was made beside, when something was.
void Discard(std::string& name) {
    if (!name.empty())
        Remove(name.c_str());
    name.clear();
}

void NameBackup(const std::string& file, const std::string& path) {
    if (!RenameOver(file.c_str(), (path + ".bak").c_str()))
        Remove(file.c_str());
}

} // namespace

void Replacement::Put(const std::string& path, std::string_view content, Before before) {
    parts_.push_back({path, std::string(content), false, before});
}

void Replacement::TakeAway(const std::string& path, Before before) {
    parts_.push_back({path, {}, true, before});
}

// Writes the new file beside. Returns false when the old one may not be changed, or on failure.
bool Replacement::Prepare(Part& part) {
    if (part.path.empty())
        return NameTooLong(); // the name that was to be made did not fit
    // A file that goes takes the link to it along, not the file behind.
    part.place = part.goes ? part.path : BehindLinks(part.path.c_str());
    part.there = Exists(part.place.c_str());
    if (IsDevice(part.place.c_str())) {
        SetLastError(EACCES);
        return false;
    }
    if (part.there && !MayChange(part.place))
        return false;
    if (part.goes)
        return true;
    part.fresh = WriteBeside(part.place, part.content);
    return !part.fresh.empty();
}

// Keeps the old content at hand, also beside when it will be wanted there. A file that goes needs
// no copy: it is kept itself.
void Replacement::CopyOld(Part& part) {
    if (!part.there)
        return;
    part.read = ReadWhole(part.place.c_str(), Mode::Read, part.old);
    if (part.old.empty() || part.old == part.content)
        part.before = Before::Dropped;
    if (!part.goes && part.before == Before::Kept)
        part.copy = WriteBeside(part.path, part.old);
}

// Brings the new file to its place, or a file that goes out of the way.
bool Replacement::Move(Part& part) {
    const char* place = part.place.c_str();
    if (!part.there)
        return part.goes || RenameOver(part.fresh.c_str(), place);
    part.second = FreeNameBeside(part.place);
    if (part.goes)
        return RenameOver(place, part.second.c_str());
    if (!AddName(place, part.second.c_str()))
        part.second.clear();
    return part.second.empty() ? TakePlace(part.fresh.c_str(), place)
                               : RenameOver(part.fresh.c_str(), place);
}

// Puts back what Move changed.
void Replacement::TakeBack(Part& part) {
    const char* place = part.place.c_str();
    if (!part.there) {
        if (!part.goes)
            Remove(place);
    } else if (!part.second.empty()) {
        RenameOver(part.second.c_str(), place);
    } else if (!part.goes && part.read) {
        if (part.copy.empty())
            part.copy = WriteBeside(part.place, part.old);
        if (TakePlace(part.copy.c_str(), place))
            part.copy.clear();
    }
}

// Lets the old file come back with the new content, and keeps the content before. From here on
// nothing can fail that matters: the new content is in place.
void Replacement::Finish(Part& part) {
    if (part.goes && part.there && part.before == Before::Kept) {
        NameBackup(part.second, part.path);
        return;
    }
    if (!part.goes && part.read && !part.second.empty()) {
        const bool done = Rewrite(part.second, part.content);
        if (!done)
            Rewrite(part.second, part.old); // for its other names
        if (done && RenameOver(part.second.c_str(), part.place.c_str()))
            part.second.clear();
    }
    Discard(part.second);
    if (!part.copy.empty())
        NameBackup(part.copy, part.path);
}

// Takes back the first `moved` parts and everything that was made beside.
bool Replacement::GiveUp(const Part& part, std::size_t moved) {
    const int reason = LastError();
    failed_ = part.path;
    while (moved > 0)
        TakeBack(parts_[--moved]);
    for (Part& one : parts_)
        for (std::string* name : {&one.fresh, &one.copy})
            Discard(*name);
    SetLastError(reason);
    return false;
}

bool Replacement::CarryOut() {
    for (Part& part : parts_)
        if (!Prepare(part))
            return GiveUp(part, 0);
    for (Part& part : parts_)
        CopyOld(part);
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        Part& part = parts_[i];
        if (!Move(part)) {
            if (!part.goes)
                Discard(part.second);
            return GiveUp(part, i);
        }
        part.fresh.clear();
    }
    for (Part& part : parts_)
        Finish(part);
    parts_.clear();
    return true;
}

void KeepBefore(const char* path) {
    const int reason = LastError();
    std::string content;
    if (MayChange(path) && ReadWhole(path, Mode::Read, content) && !content.empty())
        if (const std::string copy = WriteBeside(path, content); !copy.empty())
            NameBackup(copy, path);
    SetLastError(reason);
}

bool ReplaceWhole(const char* path, std::string_view text) {
    Replacement files;
    files.Put(path, text, Before::Dropped);
    return files.CarryOut();
}

bool ReplaceKeeping(const char* path, std::string_view text) {
    Replacement files;
    files.Put(path, text, Before::Kept);
    return files.CarryOut();
}

} // namespace files
