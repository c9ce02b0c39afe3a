// Reads a text form into the project's folder, for FolderOfForm: first what all paths depend on,
// then the files that a section holds whole, the systems, and the project.
#pragma once

#include "console/form/project_form.h"
#include "console/form/sections.h"

#include <map>
#include <set>
#include <unordered_set>

namespace console {

class FormReader {
public:
    FormReader(const SourceReader& source, const std::string& work, Failure& failure)
        : source_(source), failure_(failure) {
        folder_.work = work;
    }

    ProjectFolder Run(std::string_view text) {
        sections_ = SectionsOf(text, failure_, line_);
        if (Ok())
            Folder();
        if (Ok())
            Contents();
        if (Ok())
            Systems();
        if (Ok())
            Project();
        if (Ok())
            Unowned();
        if (!Ok() && line_ > 0)
            failure_.text = "line " + std::to_string(line_) + ": " + failure_.text;
        return std::move(folder_);
    }

private:
    bool Ok() const { return failure_.text.empty(); }

    std::string FieldOf(std::string_view text) {
        const std::optional<Field> field = FieldIn(text);
        if (!field || (field->text.empty() && !field->quoted))
            failure_.Note("no field: " + std::string(text));
        return field ? field->text : "";
    }

    std::int32_t NumberAt(std::string_view text) {
        const std::optional<std::int32_t> number = WholeNumberOf(text);
        if (!number)
            failure_.Note("not a whole number: " + std::string(text));
        return number.value_or(0);
    }

    // A name below the folder; `extension` goes behind a bare one without a '.'.
    std::string OwnOf(std::string_view text, std::string_view extension) {
        const std::optional<Field> field = FieldIn(text);
        if (!field || field->text.empty()) {
            failure_.Note("no name: " + std::string(text));
            return {};
        }
        std::string own = field->text;
        if (!field->quoted && own.find('.') == own.npos)
            own += extension;
        if (!StaysBelow(own))
            failure_.Note("not a file below the project's folder: " + std::string(text));
        return own;
    }

    std::string PathOf(std::string_view text, std::string_view extension = "") {
        if (text.starts_with('@'))
            return FieldOf(text.substr(1));
        return text == "\"\"" ? "" : folder_.Home() + OwnOf(text, extension);
    }

    template <std::size_t N> void Put(char (&field)[N], const std::string& text) {
        Store(field, text, failure_);
    }

    void Make(const std::string& own, std::string bytes) {
        const auto [file, is_new] = folder_.files.try_emplace(own, std::move(bytes));
        if (!is_new && file->second != bytes)
            failure_.Note("two sections make the file " + own);
    }

    // The bytes of a section's rows.
    template <class Record>
    std::string RowBytes(const FormSection& section, Record (*read)(std::string_view, Failure&)) {
        std::string bytes;
        bytes.reserve(section.rows.size() * sizeof(Record));
        for (const FormLine& row : section.rows) {
            line_ = row.number;
            bytes += BytesOf(read(row.text, failure_));
            if (!Ok())
                break;
        }
        return bytes;
    }

    static std::string_view ExtensionOf(const std::string& kind) {
        static const std::map<std::string, std::string_view> extensions = {
            {"project", ".mrv"}, {"results", ".rst"},   {"chosen", ".aux"}, {"tags", ".tag"},
            {"dde", ".dde"},     {"types", ".typ"},     {"index", ".siz"},  {"facts", ".fac"},
            {"entries", ".ikw"}, {"variables", ".var"}, {"files", ".mrv"}};
        const auto found = extensions.find(kind);
        return found == extensions.end() ? ".lse" : found->second;
    }

    std::string OwnOf(const FormSection& section) {
        line_ = section.number;
        if (!section.name.starts_with('"') &&
            section.name.find_first_of(".\\/: ") != section.name.npos)
            failure_.Note("no name for files: " + std::string(section.name));
        return OwnOf(section.name, ExtensionOf(section.kind));
    }

    void Folder();
    void Contents();
    void Content(const FormSection& section, const std::string& own);
    std::string FactsBytes(const FormSection& section);
    std::string DdeContent(const FormSection& section);
    void Systems();
    void System(const FormSection& section);
    void SystemSetting(const FormSettingLine& line, SystemHead& head);
    void SystemFacts(SystemFile& file, const FormSection* used,
                     const std::unordered_set<std::string>& without);
    void Index(const SystemHead& head, const std::string& usual);
    void Initial(const std::string& own, const SystemFile& file);
    void Default(const std::string& path, const std::string& own, std::string bytes);
    void Project();
    void ProjectSetting(const FormSettingLine& line, ProjectFile& project);
    void Unused(const FormSettingLine& line, char (*rows)[kNameSize], int count);
    void Row(char (*rows)[kNameSize], std::int32_t& count, int most, const std::string& path,
             const char* what);
    void Scenario(const FormSettingLine& line);
    void ReadScenario(const std::string& own);
    void Unowned();
    void Source(const std::string& path);

    // The section of this kind that belongs to a file; null without one.
    const FormSection* SectionOf(const std::string& kind, const std::string& own) {
        const auto found = by_kind_.find(kind + " " + own);
        if (found == by_kind_.end())
            return nullptr;
        taken_.insert(found->second);
        return found->second;
    }

    std::size_t CountIn(const std::string& path, std::size_t size) const {
        const std::string* const content = folder_.Content(path);
        return content ? content->size() / size : 0;
    }

    const SourceReader& source_;
    Failure& failure_;
    int line_ = 0; // being read; 0 when nothing is
    ProjectFolder folder_;
    std::vector<FormSection> sections_;
    std::map<std::string, const FormSection*> by_kind_; // by kind and own name
    std::set<const FormSection*> taken_;
    std::set<std::string> missing_, exact_; // own names
    std::vector<std::string> results_;      // own names, in the order of their sections
    std::vector<std::string> scenarios_;    // own names
};

} // namespace console
