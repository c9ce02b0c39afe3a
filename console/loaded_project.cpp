#include "console/loaded_project.h"

#include "build/core/project_lists.h"
#include "console/form/report.h"

namespace console {

namespace {

constexpr char kCutRecord[] = "damaged: its last record is cut short";

class Loader {
public:
    explicit Loader(const std::string& path) { project_.path = path; }

    LoadedProject Run() {
        const ReadResult result = ReadProject(project_.path.c_str(), project_.file);
        if (result == ReadResult::Missing)
            Unreadable(project_.path, LastReason());
        else if (result == ReadResult::Useless)
            Unreadable(project_.path, "damaged: shorter than a project file");
        else
            Files(result);
        return std::move(project_);
    }

private:
    void Unreadable(const std::string& path, const std::string& reason) {
        if (!project_.unreadable.empty())
            return;
        project_.unreadable = path;
        project_.reason = reason;
    }

    void Damaged(const std::string& path, const std::string& wrong) {
        if (!project_.damaged.empty())
            return;
        project_.damaged = path;
        project_.wrong = wrong;
    }

    // A file that is named. One that is there and cannot be read is no missing one.
    NamedFile Named(const std::string& path) {
        NamedFile file = Load(path);
        if (file.Missing() && !IsNotThere(path))
            Unreadable(path, LastReason());
        return file;
    }

    // A file of records behind `head` bytes.
    NamedFile Records(const std::string& path, std::size_t size, std::size_t head = 0) {
        NamedFile file = Named(path);
        if (file.found && file.bytes.size() < head)
            Damaged(path, "damaged: shorter than its head");
        else if ((file.bytes.size() - std::min(head, file.bytes.size())) % size != 0)
            Damaged(path, kCutRecord);
        return file;
    }

    void Files(ReadResult result) {
        const ProjectRecord& head = project_.file.head;
        if (result == ReadResult::Damaged)
            Damaged(project_.path, "damaged: it holds less than it counts");
        project_.main = Named(Text(head.MainName));
        project_.dde = Records(Text(head.DDEName), sizeof(DDE_ITEM), kNameSize);
        project_.chosen = Records(Text(head.ResAux), sizeof(TagRecord));
        for (int i = 1; i <= ExternCount(head); ++i)
            project_.externs.push_back(Named(Text(head.ExternFiles[i])));
        for (const NameRecord& record : project_.file.results)
            project_.results.push_back(Records(Text(record.name), sizeof(TagRecord)));
        for (int i = 1; i <= SystemCount(head); ++i)
            System(Text(head.EngineNames[i]));
    }

    void System(const std::string& path) {
        LoadedSystem system;
        system.path = path;
        const ReadResult result = ReadSystem(path.c_str(), system.file);
        if (result == ReadResult::Missing)
            return Unreadable(path, LastReason());
        if (result == ReadResult::Useless)
            return Unreadable(path, "damaged: shorter than a system file");
        if (result == ReadResult::Damaged)
            Damaged(path, "damaged: it holds less than it counts");
        const SystemHead& head = system.file.head;
        system.types = Records(Text(head.KTypeName), sizeof(TagRecord));
        system.rules = Named(Text(head.RuleName));
        system.index = Records(Text(head.RuleSizeName), sizeof(RuleIndexRecord));
        system.header = Named(Text(head.HeaderName));
        system.variables = Records(Text(head.VarName), sizeof(V_V));
        system.initial = Records(Text(head.InitName), sizeof(I_K));
        system.base = Records(Text(head.KnowName), sizeof(Dat));
        project_.systems.push_back(std::move(system));
    }

    LoadedProject project_;
};

} // namespace

NamedFile Load(const std::string& path) {
    NamedFile file{path, false, {}};
    file.found = !path.empty() && files::ReadWhole(path.c_str(), files::Mode::Read, file.bytes);
    return file;
}

LoadedProject LoadProject(const std::string& path) {
    return Loader(path).Run();
}

} // namespace console
