#include "shell/core/files.h"
#include "shell/core/files_state.h"

#include <algorithm>
#include <limits>

namespace files {

namespace {

constexpr unsigned kBlock = 1u << 20;
constexpr std::int64_t kLongest = std::numeric_limits<int>::max(); // of a text in memory

// The next block of `left` bytes.
unsigned BlockOf(std::size_t left) {
    return static_cast<unsigned>(std::min<std::size_t>(kBlock, left));
}

bool ReadAll(int han, std::string& text) {
    const std::int64_t length = Length(han);
    if (length < 0)
        return false;
    if (length > kLongest) {
        errno = EFBIG;
        return Noted(false);
    }
    text.resize(static_cast<std::size_t>(length));
    std::size_t have = 0;
    int got = 1;
    while (got > 0 && have < text.size()) {
        got = Read(han, text.data() + have, BlockOf(text.size() - have));
        if (got > 0)
            have += static_cast<std::size_t>(got);
    }
    text.resize(got < 0 ? 0 : have);
    return got >= 0;
}

bool WriteAll(int han, std::string_view text) {
    while (!text.empty()) {
        const int put = Write(han, text.data(), BlockOf(text.size()));
        if (put <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

// A name beside `path` that no file has: one that looks like a left-over may be the user's.
std::string FreeNameBeside(const char* path) {
    const std::string first = std::string(path) + ".tmp~";
    std::string name = first;
    for (int number = 1; Exists(name.c_str()); ++number)
        name = first + std::to_string(number);
    return name;
}

} // namespace

bool ReadWhole(const char* path, Mode mode, std::string& text) {
    text.clear();
    const int han = Open(path, mode);
    if (han == -1)
        return false;
    const bool ok = ReadAll(han, text);
    Close(han);
    return ok;
}

bool ReplaceWhole(const char* path, std::string_view text) {
    // A rename would also replace a file that is marked read-only, so ask for write access first.
    if (Exists(path)) {
        int old = Open(path, Mode::Update);
        if (old == -1)
            return false;
        Close(old);
    }
    const std::string beside = FreeNameBeside(path);
    int han = Open(beside.c_str(), Mode::Create);
    if (han == -1)
        return false;
    bool ok = WriteAll(han, text);
    ok = Close(han) && ok;
    if (ok && RenameOver(beside.c_str(), path))
        return true;
    Remove(beside.c_str());
    return false;
}

bool CopyOver(const char* from, const char* to) {
    std::string text;
    if (!ReadWhole(from, Mode::Read, text) || !ReplaceWhole(to, text))
        return false;
    Remove(from); // one that cannot go does no harm: the document is safe
    return true;
}

int LastError() {
    return g_last_error;
}

void FailWritesAfter(std::int64_t bytes) {
    g_writes_left = bytes;
}

} // namespace files
