#include "command_line.h"

#include <algorithm>
#include <cstdlib>

namespace morv {

namespace fs = std::filesystem;

namespace {

constexpr char kDde[] = "ddecom.cpp";
constexpr std::size_t kMostWords = 64; // of all paths together; a path has at most 254 bytes

bool HasCompiler(const fs::path& folder) {
    for (const char* name : {"g++", "g++.exe", "x86_64-w64-mingw32-g++"})
        if (std::error_code error; fs::exists(folder / name, error))
            return true;
    return false;
}

bool IsFolder(const fs::path& path) {
    std::error_code error;
    return fs::is_directory(path, error);
}

bool Has(const fs::path& folder, const std::string& file) {
    std::error_code error;
    return fs::is_regular_file(folder / file, error);
}

std::string Join(const std::vector<std::string>& words, std::size_t from, std::size_t to) {
    std::string text;
    for (; from < to; ++from)
        text += (text.empty() ? "" : " ") + words[from];
    return text;
}

// The paths in words[from..]: each takes some words; the include and compiler paths may take none.
class Paths {
public:
    Paths(const std::vector<std::string>& words, std::size_t from, Job& job)
        : words_(words), from_(from), job_(job) {}

    bool Find() {
        const std::size_t end = words_.size();
        for (std::size_t a = from_ + 1; a < end; ++a) {
            job_.runtime = Path(from_, a);
            if (!Has(job_.runtime, job_.api + ".cpp"))
                continue;
            for (std::size_t b = a + 1; b < end; ++b) {
                job_.project = Path(a, b);
                if (Has(job_.project, job_.rules) && FindRest(b))
                    return true;
            }
        }
        return false;
    }

private:
    fs::path Path(std::size_t from, std::size_t to) const {
        return HostPath(Join(words_, from, to));
    }

    bool FindRest(std::size_t from) {
        const std::size_t end = words_.size();
        for (std::size_t c = from; c < end; ++c)
            for (std::size_t d = c; d < end; ++d) {
                if ((c > from && !IsFolder(Path(from, c))) || (d > c && !IsFolder(Path(c, d))) ||
                    !IsFolder(Path(d, end)))
                    continue;
                job_.include = Path(from, c);
                job_.compiler = Path(c, d);
                job_.work = Path(d, end);
                // One path alone may be either.
                if (job_.include.empty() && !job_.compiler.empty() && !HasCompiler(job_.compiler))
                    std::swap(job_.include, job_.compiler);
                return true;
            }
        return false;
    }

    const std::vector<std::string>& words_;
    const std::size_t from_;
    Job& job_;
};

} // namespace

fs::path HostPath(const std::string& path) {
#ifndef _WIN32
    const bool has_drive = path.size() >= 2 && path[1] == ':';
    std::string local = path;
    std::replace(local.begin(), local.end(), '\\', '/');
    if (!has_drive)
        return local;
    const char* prefix = std::getenv("WINEPREFIX");
    const char* home = std::getenv("HOME");
    const fs::path drives =
        (prefix != nullptr ? fs::path(prefix) : fs::path(home != nullptr ? home : "/") / ".wine") /
        "dosdevices";
    const auto letter =
        static_cast<char>(local[0] >= 'A' && local[0] <= 'Z' ? local[0] + 32 : local[0]);
    return drives / (letter + std::string(":")) /
           local.substr(std::min<std::size_t>(local.find_first_not_of('/', 2), local.size()));
#else
    return path;
#endif
}

std::string ReadCommandLine(const std::vector<std::string>& words, Job& job) {
    const auto dde = std::find(words.begin(), words.end(), kDde);
    if (dde == words.end() || dde - words.begin() < 3)
        return "expected: apimorv apimorv.rc <rules>.cpp ddecom.cpp <MORV Path> <project folder> "
               "[<include path>] [<compiler path>] <work folder>";
    const auto after = static_cast<std::size_t>(dde - words.begin()) + 1;
    if (words.size() - after > kMostWords)
        return "the paths have too many words";
    job = {};
    job.api = words[0];
    job.resource = words[1];
    job.rules = Join(words, 2, after - 1);
    job.dde = kDde;
    const std::string ending = "R.cpp";
    if (job.rules.size() <= ending.size() ||
        job.rules.compare(job.rules.size() - ending.size(), ending.size(), ending) != 0)
        return "not a rules source: " + job.rules;
    job.program = "Api" + job.rules.substr(0, job.rules.size() - ending.size());
    if (!Paths(words, after, job).Find())
        return "no folder with " + job.api + ".cpp, followed by one with " + job.rules +
               ", in: " + Join(words, after, words.size());
    return {};
}

} // namespace morv
