#include "zkcc_files.h"

#include <cstdint>
#include <cstdio>
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
    // FNV-1a.
    std::uint64_t number = 0xcbf29ce484222325U;
    for (const char c : text) {
        number ^= static_cast<unsigned char>(c);
        number *= 0x100000001b3U;
    }
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
    return digits;
}

std::string FileFingerprint(const fs::path& path) {
    std::string text;
    return ReadFile(path, text) ? Fingerprint(text) : "";
}

} // namespace morv
