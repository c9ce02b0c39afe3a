// The text form of a project. docs/text-form.md describes it.
#pragma once

#include "console/form/project_folder.h"

#include <functional>

namespace console {

struct ProjectForm {
    std::string name;                          // of the text, "boiler.txt"
    std::string text;                          // UTF-8
    std::map<std::string, std::string> beside; // the sources, by their names below the folder
};

// The form of a project whose files all can be read.
ProjectForm FormOf(const ProjectFolder& folder, Refusal& refusal);

// Gives the bytes of a source beside the text; nothing when there is none.
using SourceReader = std::function<std::optional<std::string>(const std::string& name)>;

// The folder, below `work`, of the project that a text describes. What is wrong with the text is
// noted with its line.
ProjectFolder FolderOfForm(std::string_view text, const SourceReader& source,
                           const std::string& work, Failure& failure);

// What the reader and the writer of a text agree on.
namespace form {

// The bytes of records of names.
std::string NamesBytes(const std::vector<std::string>& names);

// The initial facts of a system as the editor writes them: a record for each fact, those of
// `given` with their values.
std::string InitialBytes(const std::vector<Dat>& facts, const std::vector<I_K>& given);

// What a system's files are called unless something else is said; `name` is the system file's own
// name, `rules` a full path or empty.
struct DefaultNames {
    DefaultNames(const std::string& name, const std::string& rules);
    std::string types, variables, initial, base; // own names
    std::string index;                           // a full path, empty without rules
};

} // namespace form

} // namespace console
