#include "console/form/reader.h"

#include "shell/core/line_ends.h"
#include "shell/core/paths.h"

#include <algorithm>

namespace console {

// The project's name and folder, on which all paths depend, and what is known of its files.
void FormReader::Folder() {
    const auto is_project = [](const FormSection& each) { return each.kind == "project"; };
    const auto project = std::find_if(sections_.begin(), sections_.end(), is_project);
    if (project == sections_.end()) {
        line_ = 0;
        return failure_.Note("no project");
    }
    folder_.project = OwnOf(*project);
    folder_.folder = CutAtDot(folder_.project);
    for (const FormSettingLine& line : project->settings)
        if (line.key == "folder") {
            line_ = line.number;
            const std::optional<Field> field = FieldIn(line.value);
            folder_.folder = field ? field->text : "";
            if (!field || (!field->text.empty() && (!StaysBelow(field->text) ||
                                                    field->text.find('\\') != field->text.npos)))
                failure_.Note("no name for a folder: " + std::string(line.value));
        }
    if (!Ok())
        return;
    for (const FormSection& section : sections_) {
        const auto [found, is_new] =
            by_kind_.try_emplace(section.kind + " " + OwnOf(section), &section);
        if (!is_new)
            failure_.Note("the section is there twice");
        if (!Ok())
            return;
        if (section.kind == "files")
            for (const FormSettingLine& line : section.settings) {
                line_ = line.number;
                if (line.key != "missing" && line.key != "exact")
                    failure_.Note("no such setting: " + line.key);
                (line.key == "exact" ? exact_ : missing_).insert(OwnOf(line.value, ""));
            }
    }
}

std::string FormReader::FactsBytes(const FormSection& section) {
    std::string bytes;
    std::int32_t number = 0;
    for (const FormLine& row : section.rows) {
        line_ = row.number;
        bytes += BytesOf(FactOfRow(row.text, ++number, failure_));
        if (!Ok())
            break;
    }
    return bytes;
}

std::string FormReader::DdeContent(const FormSection& section) {
    NameRecord head{};
    for (const FormSettingLine& line : section.settings) {
        line_ = line.number;
        if (line.key != "conversation")
            failure_.Note("no such setting: " + line.key);
        Put(head.name, FieldOf(line.value));
    }
    return std::string(BytesOf(head)) + RowBytes(section, ItemOfRow);
}

void FormReader::Content(const FormSection& section, const std::string& own) {
    const std::string& kind = section.kind;
    if (kind == "results" || kind == "tags" || kind == "types" || kind == "chosen")
        Make(own, RowBytes(section, NameOfRow));
    else if (kind == "facts")
        Make(own, FactsBytes(section));
    else if (kind == "variables")
        Make(own, RowBytes(section, VariableOfRow));
    else if (kind == "entries")
        Make(own, RowBytes(section, InitialOfRow));
    else if (kind == "index")
        Make(own, RowBytes(section, IndexOfRow));
    else if (kind == "dde")
        Make(own, DdeContent(section));
    if (kind == "results")
        results_.push_back(own);
}

// The files that a section holds whole.
void FormReader::Contents() {
    for (const FormSection& section : sections_) {
        const std::string own = OwnOf(section);
        Content(section, own);
        if (!Ok())
            return;
    }
}

// The file with the usual name is made, also an empty one, unless the text says that it is missing.
void FormReader::Default(const std::string& path, const std::string& own, std::string bytes) {
    if (path == folder_.Home() + own && !missing_.contains(own))
        folder_.files.try_emplace(own, std::move(bytes));
}

void FormReader::Source(const std::string& path) {
    const std::optional<std::string> own = folder_.OwnName(path);
    if (!own || missing_.contains(*own) || folder_.files.contains(*own))
        return;
    const std::optional<std::string> text = source_(*own);
    if (!text)
        return failure_.Note("cannot read " + *own);
    Make(*own, exact_.contains(*own) ? *text : WithCrLf(*text));
}

ProjectFolder FolderOfForm(std::string_view text, const SourceReader& source,
                           const std::string& work, Failure& failure) {
    return FormReader(source, work, failure).Run(text);
}

} // namespace console
