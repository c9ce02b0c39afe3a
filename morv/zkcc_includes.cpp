#include "zkcc_includes.h"

#include "language/generated_lines.h"
#include "zkcc_files.h"

#include <set>

namespace morv {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kMostText = std::size_t{1} << 25;

struct Include {
    std::string name;
    bool quoted;
};

// Of lines like `#include "own.h"`.
std::vector<Include> IncludesOf(const std::string& text) {
    std::vector<Include> includes;
    for (std::size_t at = text.find('#'); at != std::string::npos;) {
        const std::size_t line = text.rfind('\n', at) + 1, end = text.find('\n', at);
        const std::string start = Trimmed(text.substr(line, end - line));
        at = end == std::string::npos ? end : text.find('#', end);
        if (start[0] != '#' || Trimmed(start.substr(1)).compare(0, 7, "include") != 0)
            continue;
        const std::size_t from = start.find_first_of("\"<");
        const std::size_t to = start.find_first_of("\">", from + 1);
        if (from != std::string::npos && to != std::string::npos)
            includes.push_back({start.substr(from + 1, to - from - 1), start[from] == '"'});
    }
    return includes;
}

class Reader {
public:
    explicit Reader(const std::vector<fs::path>& folders) : folders_(folders) {}

    Included All(const std::string& text) {
        Read(text, {});
        return std::move(included_);
    }

private:
    void Read(const std::string& text, const fs::path& beside) {
        for (const Include& include : IncludesOf(text))
            if (seen_.insert(include.name).second && !Find(include.name, beside))
                included_.all = included_.all && !include.quoted;
    }

    bool Find(const std::string& name, const fs::path& beside) {
        if (included_.text.size() > kMostText)
            return false;
        std::vector<fs::path> folders = folders_;
        folders.insert(folders.begin(), beside);
        for (const fs::path& folder : folders) {
            const fs::path file = folder / fs::path(name);
            std::string text;
            if (folder.empty() || !ReadFile(file, text))
                continue;
            included_.text += text + "\n";
            Read(text, file.parent_path());
            return true;
        }
        return false;
    }

    const std::vector<fs::path>& folders_;
    // These declare nothing that rules would use by the names of facts.
    std::set<std::string> seen_ = {"consts.h",   "shell.h",   "datafact.h",
                                   "dfactres.h", "inf_eng.h", "ddecom.h"};
    Included included_;
};

} // namespace

Included ReadIncluded(const std::string& text, const std::vector<fs::path>& folders) {
    return Reader(folders).All(text);
}

} // namespace morv
