// Whole files, and numbers that tell their contents apart.
#pragma once

#include <filesystem>
#include <string>

namespace morv {

bool ReadFile(const std::filesystem::path& path, std::string& text);

// Writes a file, or leaves one that has this text already. One that could not be written whole is
// removed.
bool WriteFile(const std::filesystem::path& path, const std::string& text);

// 16 hexadecimal digits that differ where texts differ.
std::string Fingerprint(const std::string& text);

// The fingerprint of a file's content; empty when it cannot be read.
std::string FileFingerprint(const std::filesystem::path& path);

} // namespace morv
