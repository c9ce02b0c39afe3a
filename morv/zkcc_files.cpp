#include "zkcc_files.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>

namespace morv {

namespace fs = std::filesystem;

bool ReadFile(const fs::path& path, std::string& text) {
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return false;
    std::ifstream file(path, std::ios::binary);
    text.resize(static_cast<std::size_t>(fs::file_size(path, error)));
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    return !error && file.good();
}

bool WriteFile(const fs::path& path, const std::string& text) {
    if (std::string before; ReadFile(path, before) && before == text)
        return true;
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    std::error_code ignored;
    if (!file)
        fs::remove(path, ignored);
    return file.good();
}

std::string Fingerprint(const std::string& text) {
    // Eight bytes at a time: programs have many megabytes.
    std::uint64_t number = 0xcbf29ce484222325U ^ text.size();
    const auto take = [&](std::size_t at, std::size_t count) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + at, count);
        number = (number ^ word) * 0x9e3779b97f4a7c15U;
        number ^= number >> 32U;
    };
    const std::size_t whole = text.size() - text.size() % sizeof number;
    for (std::size_t at = 0; at < whole; at += sizeof number)
        take(at, sizeof number);
    take(whole, text.size() - whole);
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
    return digits;
}

std::string FileFingerprint(const fs::path& path) {
    std::string text;
    return ReadFile(path, text) ? Fingerprint(text) : "";
}

} // namespace morv
