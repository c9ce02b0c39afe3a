#include "console/move.h"

#include "build/core/project_lists.h"
#include "build/core/tools_file.h"
#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/file_set.h"
#include "console/form/project_folder.h"

#include <algorithm>

namespace console {

namespace {

class Mover {
public:
    Mover(const MoveOptions& options, const Report& report) : options_(options), report_(report) {
        for (std::string* folder : {&options_.from, &options_.to})
            while (folder->ends_with('\\'))
                folder->pop_back();
    }

    int Run() {
        std::string bytes;
        if (!Read(options_.project, bytes))
            return kStopped;
        const int code = Project(std::move(bytes));
        if (code != kNothingFound)
            return code;
        Tools(options_.project.substr(0, options_.project.rfind('\\')));
        if (refusal_.Is())
            return report_.Stop(refusal_.file, refusal_.reason);
        return written_.Write(report_) ? Told() : kStopped;
    }

private:
    bool Read(const std::string& path, std::string& bytes) const {
        if (files::ReadWhole(path.c_str(), files::Mode::Read, bytes))
            return true;
        report_.Stop(path, LastReason());
        return false;
    }

    // Puts the new folder into a field; what does not lie in the old one stays, byte for byte.
    template <std::size_t N> void Rewrite(const std::string& file, char (&field)[N]) {
        const std::string path = Text(field);
        const bool inside =
            Folded(path).starts_with(Folded(options_.from)) &&
            (path.size() == options_.from.size() || path[options_.from.size()] == '\\');
        if (!inside)
            return;
        const std::string moved = options_.to + path.substr(options_.from.size());
        if (moved.size() >= N)
            refusal_.Note(file, "the path gets too long: " + moved);
        SetText(field, moved);
        ++changes_[file];
    }

    int Project(std::string bytes) {
        const std::string& path = options_.project;
        if (bytes.size() < sizeof(ProjectRecord))
            return report_.Stop(path, "damaged: shorter than a project file");
        ProjectFile project = ProjectIn(bytes);
        ProjectRecord& head = project.head;
        Rewrite(path, head.MainName);
        Rewrite(path, head.DDEName);
        Rewrite(path, head.ResAux);
        for (auto& name : head.EngineNames)
            Rewrite(path, name);
        for (auto& name : head.ExternFiles)
            Rewrite(path, name);
        for (NameRecord& record : project.results)
            Rewrite(path, record.name);
        const std::string written = std::string(BytesOf(head)).append(BytesOf(project.results));
        Change(path, written + bytes.substr(written.size()));
        if (refusal_.Is())
            return report_.Stop(refusal_.file, refusal_.reason);
        for (int i = 1; i <= SystemCount(head); ++i)
            if (const int code = System(Text(head.EngineNames[i])); code != kNothingFound)
                return code;
        return kNothingFound;
    }

    int System(const std::string& path) {
        std::string bytes;
        if (!Read(path, bytes))
            return kStopped;
        if (bytes.size() < sizeof(SystemHead))
            return report_.Stop(path, "damaged: shorter than a system file");
        SystemHead head = HeadIn(bytes);
        Rewrite(path, head.KTypeName);
        Rewrite(path, head.RuleName);
        Rewrite(path, head.RuleSizeName);
        Rewrite(path, head.HeaderName);
        Rewrite(path, head.VarName);
        Rewrite(path, head.InitName);
        Rewrite(path, head.KnowName);
        Change(path, std::string(BytesOf(head)) + bytes.substr(sizeof head));
        return kNothingFound;
    }

    // The work folder, which has the tools file, is mostly the one above the project's.
    void Tools(const std::string& folder) {
        for (const std::string& work : {folder, folder.substr(0, folder.rfind('\\'))}) {
            const std::string path = ToolsFileName(work);
            std::string bytes;
            if (!files::ReadWhole(path.c_str(), files::Mode::Read, bytes))
                continue;
            std::vector<NameRecord> slots = RecordsIn<NameRecord>(bytes);
            for (NameRecord& slot : slots) {
                Rewrite(path, slot.name);
                Command(path, slot);
            }
            const std::string written(BytesOf(slots));
            Change(path, written + bytes.substr(written.size()));
            return;
        }
    }

    // A compiler's command may begin with a path between quotes.
    void Command(const std::string& file, NameRecord& slot) {
        const std::string text = Text(slot.name);
        const std::size_t end = text.find('"', 1);
        if (!text.starts_with('"') || end == text.npos)
            return;
        NameRecord inner{};
        SetText(inner.name, text.substr(1, end - 1));
        const int before = changes_[file];
        Rewrite(file, inner.name);
        if (changes_[file] == before)
            return;
        const std::string moved = '"' + Text(inner.name) + text.substr(end);
        if (moved.size() >= sizeof slot.name)
            refusal_.Note(file, "the command gets too long: " + moved);
        SetText(slot.name, moved);
    }

    void Change(const std::string& path, std::string bytes) {
        if (changes_[path] > 0)
            written_.Add(path, std::move(bytes));
    }

    int Told() const {
        for (const auto& [path, count] : changes_)
            if (count > 0)
                report_.out << HostText(path) << ": " << count << (count == 1 ? " path" : " paths")
                            << '\n';
        if (std::none_of(changes_.begin(), changes_.end(),
                         [](const auto& change) { return change.second > 0; }))
            report_.out << "no path inside lies in " << ToUtf8(options_.from) << '\n';
        return kNothingFound;
    }

    MoveOptions options_;
    const Report& report_;
    FileSet written_;
    Refusal refusal_;
    std::map<std::string, int> changes_; // by file
};

} // namespace

int Move(const MoveOptions& options, const Report& report) {
    return Mover(options, report).Run();
}

} // namespace console
