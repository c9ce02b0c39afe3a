#include "zkcc_cache.h"

#include "run_tool.h"
#include "zkcc_files.h"

#include <algorithm>
#include <sstream>

namespace morv {

namespace fs = std::filesystem;

namespace {

constexpr char kRecord[] = ".from"; // what was made from what stands beside it
constexpr char kBuild[] = "build";  // the record of the last build that went well
constexpr char kUsed[] = "used";    // in it, instead of a fingerprint: a file of this folder

// A record has a line each for the key, the size of what was made, and each file that it was made
// from with its fingerprint; then what the compiler said. Its length shows whether it is whole.
struct Record {
    std::string key;
    std::uintmax_t size = 0;
    std::vector<std::pair<std::string, std::string>> from; // fingerprint and path
    std::string said;
};

std::string Written(const Record& record) {
    std::string text = "key " + record.key + "\nsize " + std::to_string(record.size) + "\n";
    for (const auto& [print, path] : record.from)
        text += print + " " + path + "\n";
    return text + "said " + std::to_string(record.said.size()) + "\n" + record.said;
}

bool Read(const std::string& text, Record& record) {
    std::istringstream lines(text);
    std::string word;
    if (!(lines >> word >> record.key) || word != "key" || !(lines >> word >> record.size) ||
        word != "size")
        return false;
    while (lines >> word && word != "said") {
        std::string path;
        lines.get();
        if (!std::getline(lines, path))
            return false;
        record.from.emplace_back(word, path);
    }
    std::size_t length = 0;
    if (!(lines >> length) || lines.get() != '\n' || text.size() < length)
        return false;
    record.said = text.substr(text.size() - length);
    return static_cast<std::size_t>(lines.tellg()) + length == text.size();
}

std::string Utf8(const fs::path& path) {
    const auto text = path.u8string();
    return {text.begin(), text.end()};
}

fs::path PathOf(const std::string& text) {
    return std::u8string(text.begin(), text.end());
}

} // namespace

std::string Cache::PrintOf(const fs::path& path) {
    const fs::path whole = folder_ / path;
    const auto [print, is_new] = prints_.emplace(Utf8(whole), "");
    if (is_new)
        print->second = FileFingerprint(whole);
    return print->second;
}

void Cache::Use(const std::string& name) {
    used_.insert(name);
}

Kept Cache::Find(const std::string& name, const std::string& key) {
    Use(name);
    Use(name + kRecord);
    std::string text;
    Record record;
    std::error_code error;
    if (!ReadFile(File(name + kRecord), text) || !Read(text, record) || record.key != key ||
        fs::file_size(File(name), error) != record.size || error)
        return {};
    std::vector<fs::path> from;
    for (const auto& [print, path] : record.from) {
        from.push_back(PathOf(path));
        if (PrintOf(from.back()) != print)
            return {};
    }
    return {Fingerprint(name + text), record.said, from};
}

Kept Cache::Keep(const std::string& name, const std::string& key, const fs::path& made,
                 const std::vector<fs::path>& from, const std::string& said) {
    Record record{key, 0, {}, said};
    for (const fs::path& path : from)
        record.from.emplace_back(PrintOf(path), Utf8(path));
    std::error_code error;
    record.size = fs::file_size(made, error);
    const bool known = std::none_of(record.from.begin(), record.from.end(),
                                    [](const auto& file) { return file.first.empty(); });
    // A record never stands beside a file that it does not describe.
    fs::remove(File(name + kRecord), error);
    fs::rename(made, File(name), error);
    if (error)
        return {};
    if (from.empty() || !known || !WriteFile(File(name + kRecord), Written(record)))
        return {FileFingerprint(File(name)), said, from};
    return {Fingerprint(name + Written(record)), said, from};
}

void Cache::Remember(const std::string& key, const std::vector<fs::path>& from,
                     const fs::path& made, const std::string& log) {
    Record record{key, 0, {{FileFingerprint(made), Utf8(made)}}, log};
    for (const fs::path& path : from)
        record.from.emplace_back(PrintOf(path), Utf8(path));
    for (const auto& [print, path] : record.from)
        if (print.empty())
            return;
    Use(kBuild);
    for (const std::string& name : used_)
        record.from.emplace_back(kUsed, name);
    WriteFile(File(kBuild), Written(record));
}

bool Cache::Remembers(const std::string& key, std::string& log) {
    std::string text;
    Record record;
    if (!ReadFile(File(kBuild), text) || !Read(text, record) || record.key != key)
        return false;
    for (const auto& [print, path] : record.from)
        if (print != kUsed && PrintOf(PathOf(path)) != print)
            return false;
    for (const auto& [print, path] : record.from)
        if (print == kUsed)
            Use(path);
    log = record.said;
    return true;
}

void Cache::DropOthers() const {
    std::error_code error;
    std::vector<fs::path> others;
    for (fs::directory_iterator at(folder_, error), end; !error && at != end; at.increment(error))
        if (used_.count(Utf8(at->path().filename())) == 0)
            others.push_back(at->path());
    for (const fs::path& other : others)
        fs::remove_all(other, error);
}

std::vector<fs::path> ReadDependencies(const std::string& text) {
    std::vector<fs::path> files;
    const std::size_t colon = text.find(": ");
    std::string word;
    const auto end_word = [&] {
        if (!word.empty())
            files.push_back(PathFromTool(word));
        word.clear();
    };
    for (std::size_t at = colon == std::string::npos ? text.size() : colon + 1; at < text.size();
         ++at) {
        const char c = text[at], next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (c == '\\' && (next == '\n' || next == '\r'))
            end_word();
        else if ((c == '\\' && (next == ' ' || next == '#')) || (c == '$' && next == '$'))
            word += text[++at];
        else if (c == ' ' || c == '\n' || c == '\r')
            end_word();
        else
            word += c;
    }
    end_word();
    return files;
}

} // namespace morv
