#include "command_line.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <sstream>

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
    return fs::is_regular_file(folder / HostPath(file), error);
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
        : words_(words), from_(from), end_(words.size()), job_(job) {}

    // Returns an empty text, or what is wrong.
    std::string Find() {
        std::string wrong = "no " + job_.api + ".cpp in the MORV Path, or no such path, in: " +
                            Join(words_, from_, end_);
        for (std::size_t a = from_ + 1; a < end_; ++a)
            for (std::size_t b = a + 1; b < end_; ++b) {
                if (!Has(Path(a, b), job_.rules))
                    continue;
                job_.project = Path(a, b);
                job_.runtime = Path(from_, a);
                if (!Has(job_.runtime, job_.api + ".cpp"))
                    continue;
                if (FindRest(b))
                    return {};
                wrong =
                    "the Compiler Include, the Compiler Path or the work folder is not there: " +
                    Join(words_, b, end_);
            }
        return job_.project.empty()
                   ? "no folder with " + job_.rules + " in: " + Join(words_, from_, end_)
                   : wrong;
    }

private:
    fs::path Path(std::size_t from, std::size_t to) const {
        return HostPath(Join(words_, from, to));
    }

    bool FindRest(std::size_t from) {
        for (std::size_t c = from; c < end_; ++c)
            for (std::size_t d = c; d < end_; ++d) {
                if ((c > from && !IsFolder(Path(from, c))) || (d > c && !IsFolder(Path(c, d))) ||
                    !IsFolder(Path(d, end_)))
                    continue;
                job_.include = Path(from, c);
                job_.compiler = Path(c, d);
                job_.work = Path(d, end_);
                // One path alone may be either.
                if (job_.include.empty() && !job_.compiler.empty() && !HasCompiler(job_.compiler))
                    std::swap(job_.include, job_.compiler);
                return true;
            }
        return false;
    }

    const std::vector<std::string>& words_;
    const std::size_t from_, end_;
    Job& job_;
};

#ifndef _WIN32

bool SameButCase(const std::string& a, const std::string& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
        return std::tolower(x) == std::tolower(y);
    });
}

// What is called `name` in a folder, in whatever case; the name itself where nothing is.
fs::path Entry(const fs::path& folder, const fs::path& name) {
    std::error_code error;
    if (!fs::exists(folder / name, error))
        for (const auto& entry : fs::directory_iterator(folder, error))
            if (SameButCase(entry.path().filename().string(), name.string()))
                return entry.path().filename();
    return name;
}

// The drives of the Wine prefix that this program was started from.
fs::path Drives() {
    const char* prefix = std::getenv("WINEPREFIX");
    const char* home = std::getenv("HOME");
    return (prefix != nullptr ? fs::path(prefix)
                              : fs::path(home != nullptr ? home : "/") / ".wine") /
           "dosdevices";
}

#endif

} // namespace

#ifdef _WIN32

fs::path HostPath(const std::string& path) {
    // A drive alone is the folder that is current there.
    const bool drive = path.size() == 2 && path[1] == ':';
    const std::string whole = drive ? path + "\\" : path;
    return std::u8string(whole.begin(), whole.end());
}

#else

fs::path HostPath(const std::string& path) {
    std::string local = path;
    std::replace(local.begin(), local.end(), '\\', '/');
    if (local.size() < 2 || local[1] != ':')
        return local;
    fs::path found = Drives() / (static_cast<char>(std::tolower(local[0])) + std::string(":"));
    std::istringstream names(local.substr(2));
    for (std::string name; std::getline(names, name, '/');)
        if (!name.empty())
            found /= Entry(found, name);
    return found;
}

#endif

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
    return Paths(words, after, job).Find();
}

std::filesystem::path ProgramOf(const Job& job) {
#ifndef _WIN32
    if (job.console)
        return job.project / HostPath(job.program);
#endif
    return job.project / HostPath(job.program + ".exe");
}

} // namespace morv
