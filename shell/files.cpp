#include "shell/files.h"

#include <algorithm>

namespace files {

namespace {
constexpr unsigned kBlock = 1u << 20;
} // namespace

bool ReadWhole(const char* path, Mode mode, std::string& text) {
    text.clear();
    int han = Open(path, mode);
    if (han == -1)
        return false;
    std::int64_t length = Length(han);
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    std::size_t have = 0;
    int got = 0;
    while (have < text.size()) {
        auto want = static_cast<unsigned>(std::min<std::size_t>(kBlock, text.size() - have));
        got = Read(han, text.data() + have, want);
        if (got <= 0)
            break;
        have += static_cast<std::size_t>(got);
    }
    text.resize(have);
    Close(han);
    if (got < 0)
        text.clear();
    return length >= 0 && got >= 0;
}

namespace {

bool WriteAll(int han, std::string_view text) {
    while (!text.empty()) {
        auto want = static_cast<unsigned>(std::min<std::size_t>(kBlock, text.size()));
        int put = Write(han, text.data(), want);
        if (put <= 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

} // namespace

bool ReplaceWhole(const char* path, std::string_view text) {
    // A rename would also replace a file that is marked read-only, so ask for write access first.
    if (Exists(path)) {
        int old = Open(path, Mode::Update);
        if (old == -1)
            return false;
        Close(old);
    }
    const std::string beside = std::string(path) + ".tmp~";
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

} // namespace files
