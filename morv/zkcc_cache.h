// What earlier builds of a project made: a folder of its own in the project's folder. A file is
// used again when it is whole and all that it was made from is unchanged.
#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace morv {

struct Kept {
    std::string identity; // differs where the file does; empty when there is none to be used
    std::string said;     // what the compiler said when it made it
    std::vector<std::filesystem::path> from; // the files that it was made from
};

class Cache {
public:
    explicit Cache(std::filesystem::path folder) : folder_(std::move(folder)) {}

    std::filesystem::path File(const std::string& name) const { return folder_ / name; }

    // Looks whether the file `name`, made by a command that is told apart by `key`, can be used.
    Kept Find(const std::string& name, const std::string& key);

    // Takes the file `made` as `name`: made by the command `key` from the files in `from`, of which
    // paths without a root stand in this folder. When one of
    // these cannot be read the file serves this build only. Returns what it then is; no identity
    // when it could not be taken.
    Kept Keep(const std::string& name, const std::string& key, const std::filesystem::path& made,
              const std::vector<std::filesystem::path>& from, const std::string& said);

    // Keeps the log of a build that is done: `key` is what it was told, `from` are all files that
    // count beside, `made` is what it made.
    void Remember(const std::string& key, const std::vector<std::filesystem::path>& from,
                  const std::filesystem::path& made, const std::string& log);

    // Whether the build before was told the same and all that counted is unchanged: then this
    // one uses what that one used, and says the same.
    bool Remembers(const std::string& key, std::string& log);

    // Says that this build uses a file of the folder.
    void Use(const std::string& name);

    // Removes every file that this build did not use; what cannot go stays until another build.
    void DropOthers() const;

private:
    std::string PrintOf(const std::filesystem::path& path);

    const std::filesystem::path folder_;
    std::set<std::string> used_;
    std::map<std::string, std::string> prints_; // of the files looked at
};

// The files in what a compiler writes by -MMD: "target: file file \", with "\ " for a blank.
std::vector<std::filesystem::path> ReadDependencies(const std::string& text);

} // namespace morv
