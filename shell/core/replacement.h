// Files that change together: all of them, or none.
//
// What is new is written and flushed beside each file first, so that a full disk changes nothing.
// Then every new file takes the place of the old one by a rename; when one of these fails, those
// done before are taken back. At each moment there is a whole file at every place.
//
// The file at the place stays the one that was there, with its rights, attributes, streams and
// other names, and a link goes on leading to it: the old file keeps a second name until the
// changes are in place, then it gets the new content under that name and comes back by one more
// rename. Where a drive has no second names, the new file takes over rights and attributes. The
// other names of a file are the one thing that a crash can leave with a part of the new content.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace files {

// What becomes of the content that a file had.
enum class Before {
    Kept,    // it stays as the path with ".bak", in the place of an earlier one
    Dropped, // of working copies and of what the program makes itself
};

class Replacement {
public:
    Replacement() = default;
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    // The whole content that a file is to have.
    void Put(const std::string& path, std::string_view content, Before before);

    // A file that is to go; one that is not there is no failure.
    void TakeAway(const std::string& path, Before before);

    // Changes everything. Returns false when nothing was changed; LastError() says why.
    bool CarryOut();

    // The path whose change failed.
    const std::string& Failed() const { return failed_; }

private:
    struct Part {
        std::string path;
        std::string content;
        bool goes;
        Before before;
        std::string place{};  // the path behind links
        bool there = false;   // whether there is an old file
        std::string old{};    // its content, once it is
        bool read = false;    // which may not be possible
        std::string fresh{};  // the new file beside; empty once it is at its place
        std::string copy{};   // the copy of the old one beside
        std::string second{}; // the old file's second name
    };

    static bool Prepare(Part& part);
    static void CopyOld(Part& part);
    static bool Move(Part& part);
    static void TakeBack(Part& part);
    static void Finish(Part& part);
    bool GiveUp(const Part& part, std::size_t moved);

    std::vector<Part> parts_;
    std::string failed_;
};

// Keeps the content of a file that is about to change as `path` with ".bak". One that is empty,
// cannot be read or could not be changed is not kept. Never a reason to stop: it says nothing.
void KeepBefore(const char* path);

} // namespace files
