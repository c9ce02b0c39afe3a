#include "shell/core/files.h"
#include "shell/core/files_state.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

namespace files {

namespace {

constexpr unsigned kBlock = 1u << 20;
constexpr std::int64_t kLongest = std::numeric_limits<int>::max(); // of a text in memory

bool g_only_look = false; // see ReadOnlyToLook

// The next block of `left` bytes.
unsigned BlockOf(std::size_t left) {
    return static_cast<unsigned>(std::min<std::size_t>(kBlock, left));
}

bool TooLong() {
    errno = EFBIG;
    return Noted(false);
}

// Of a pipe nobody knows how much is still to come.
bool ReadToEnd(int han, std::string& text) {
    std::array<char, 1u << 16> block;
    for (;;) {
        const int got = Read(han, block.data(), block.size());
        if (got > 0)
            text.append(block.data(), static_cast<std::size_t>(got));
        const bool fits = std::cmp_less_equal(text.size(), kLongest);
        if (got > 0 && fits)
            continue;
        if (got < 0 || !fits)
            text.clear();
        return fits ? got == 0 : TooLong();
    }
}

bool ReadAll(int han, std::string& text) {
    const std::int64_t length = Length(han);
    if (length < 0)
        return false;
    if (length == 0)
        return ReadToEnd(han, text);
    if (length > kLongest)
        return TooLong();
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

} // namespace

bool ReadWhole(const char* path, Mode mode, std::string& text) {
    text.clear();
    const int han = Open(path, mode == Mode::Update && g_only_look ? Mode::Read : mode);
    if (han == -1)
        return false;
    const bool ok = ReadAll(han, text);
    Close(han);
    return ok;
}

void ReadOnlyToLook(bool on) {
    g_only_look = on;
}

bool WriteAll(int han, std::string_view text) {
    while (!text.empty()) {
        const unsigned block = BlockOf(text.size());
        if (Write(han, text.data(), block) == -1)
            return false;
        text.remove_prefix(block);
    }
    return true;
}

void SetLastError(int reason) {
    g_last_error = reason;
}

bool NameTooLong() {
    errno = ENAMETOOLONG;
    return Noted(false);
}

int LastError() {
    return g_last_error;
}

void FailWritesAfter(std::int64_t bytes) {
    g_writes_left = bytes;
}

void FailOperation(std::int64_t number) {
    g_operations = 0;
    g_failing_operation = number;
}

std::int64_t Operations() {
    return g_operations;
}

} // namespace files
