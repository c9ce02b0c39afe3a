#include "console/show.h"

#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/rows.h"
#include "project/core/project_file.h"
#include "shell/core/files.h"
#include "system/core/system_file.h"

#include <map>
#include <utility>

namespace console {

namespace {

class Shower {
public:
    Shower(const std::string& bytes, std::ostream& out) : bytes_(bytes), out_(out) {}

    void Project();
    void System();
    void Tools();
    void Dde();
    void Names();
    void Facts();
    void Variables();
    void InitialFacts();
    void Index();

private:
    void Wrong(const std::string& what) { out_ << "! " << what << '\n'; }

    // A name with what it is for, unless it is empty.
    template <std::size_t N> void Named(const std::string& what, const char (&field)[N]) {
        Ends(field);
        if (field[0] != '\0')
            out_ << what << " = " << FieldText(Text(field), "") << '\n';
    }

    template <std::size_t N> void Ends(const char (&field)[N]) {
        if (std::memchr(field, '\0', N) == nullptr)
            Wrong("the next text fills its field and has no end");
    }

    void Fact(const Dat& fact) {
        Ends(fact.Name);
        Ends(fact.KnowType);
        Ends(fact.Description);
        Ends(fact.Units);
        out_ << FactRow(fact, -1) << '\n';
    }

    // The rows of a list in a project: which are in use, and what stands in the others.
    template <std::size_t Rows>
    void List(const std::string& what, const char (&rows)[Rows][kNameSize], std::int32_t count) {
        for (std::size_t i = 0; i < Rows; ++i) {
            const bool used = i > 0 && std::cmp_less_equal(i, count);
            if (used && rows[i][0] == '\0')
                Wrong(what + " " + std::to_string(i) + " has no name");
            Named(used ? what : "unused " + what + " " + std::to_string(i), rows[i]);
        }
        if (count < 0 || std::cmp_greater_equal(count, Rows))
            Wrong("it counts " + std::to_string(count) + " of " + what + ", of which there are " +
                  std::to_string(Rows - 1));
    }

    // Shows the whole records from `at` on, `most` at most; says when one is cut short.
    template <class Record, class Line>
    std::size_t Records(std::size_t at, Line line, std::int64_t most = -1) {
        std::vector<Record> records = RecordsIn<Record>(bytes_, at);
        if (most >= 0 && std::cmp_less(most, records.size()))
            records.resize(static_cast<std::size_t>(most));
        for (std::size_t i = 0; i < records.size(); ++i)
            line(records[i], i);
        return at + records.size() * sizeof(Record);
    }

    void Rest(std::size_t at) {
        if (at < bytes_.size())
            Wrong("bytes behind its last whole record: " + std::to_string(bytes_.size() - at));
    }

    bool HasHead(std::size_t size) {
        if (bytes_.size() >= size)
            return true;
        Wrong("it has " + std::to_string(bytes_.size()) + " bytes, its head alone " +
              std::to_string(size));
        return false;
    }

    const std::string& bytes_;
    std::ostream& out_;
};

void Shower::Project() {
    if (!HasHead(sizeof(ProjectRecord)))
        return;
    ProjectRecord head;
    std::memcpy(&head, bytes_.data(), sizeof head);
    Named("main", head.MainName);
    List("system", head.EngineNames, head.EngNum);
    List("extern", head.ExternFiles, head.ExtNum);
    Named("dde", head.DDEName);
    Named("chosen results", head.ResAux);
    out_ << "history = " << head.DatHisLen << '\n';
    const std::int32_t count = head.ResNum;
    const std::size_t end = Records<NameRecord>(
        sizeof head, [&](const NameRecord& record, std::size_t) { Named("results", record.name); },
        std::max(count, 0));
    const std::size_t there = (end - sizeof head) / sizeof(NameRecord);
    if (count < 0 || std::cmp_less(there, count))
        Wrong("it counts " + std::to_string(count) + " results files and holds " +
              std::to_string(there));
    Rest(end);
}

void Shower::System() {
    if (!HasHead(sizeof(SystemHead)))
        return;
    SystemHead head;
    std::memcpy(&head, bytes_.data(), sizeof head);
    const SystemFile system = SystemIn(bytes_);
    Named("rules", head.RuleName);
    Named("index", head.RuleSizeName);
    Named("header", head.HeaderName);
    Named("types", head.KTypeName);
    Named("variables", head.VarName);
    Named("initial", head.InitName);
    Named("facts", head.KnowName);
    out_ << "knowledge types = " << head.TypNum << '\n';
    const auto counted = [&](const char* what, std::int32_t count, std::size_t there) {
        if (!std::cmp_equal(count, there))
            Wrong("it counts " + std::to_string(count) + " " + what + " and holds " +
                  std::to_string(there));
    };
    out_ << "[facts]\n";
    for (const Dat& fact : system.facts)
        Fact(fact);
    counted("facts", head.DatNum, system.facts.size());
    out_ << "[opposites]\n";
    for (const NameRecord& opposite : system.opposites) {
        Ends(opposite.name);
        out_ << OppositeRow(Text(opposite.name)) << '\n';
    }
    counted("opposites", head.OppNum, system.opposites.size());
    Rest(sizeof head + system.facts.size() * sizeof(Dat) +
         system.opposites.size() * sizeof(NameRecord));
}

void Shower::Tools() {
    static constexpr const char* kSlots[] = {"MORV Path", "compiler", "include path",
                                             "compiler path"};
    Rest(Records<NameRecord>(0, [&](const NameRecord& record, std::size_t i) {
        Named(i < std::size(kSlots) ? kSlots[i] : "known compiler", record.name);
    }));
    if (bytes_.size() / sizeof(NameRecord) < std::size(kSlots))
        Wrong("it has fewer than " + std::to_string(std::size(kSlots)) + " settings");
}

void Shower::Dde() {
    if (!HasHead(kNameSize))
        return;
    NameRecord head;
    std::memcpy(&head, bytes_.data(), sizeof head);
    Named("conversation", head.name);
    Rest(Records<DDE_ITEM>(kNameSize, [&](const DDE_ITEM& item, std::size_t) {
        Ends(item.DName);
        Ends(item.DType);
        out_ << ItemRow(item) << '\n';
    }));
}

void Shower::Names() {
    Rest(Records<TagRecord>(0, [&](const TagRecord& record, std::size_t) {
        Ends(record.name);
        out_ << NameRow(Text(record.name)) << '\n';
    }));
}

void Shower::Facts() {
    Rest(Records<Dat>(0, [&](const Dat& fact, std::size_t) { Fact(fact); }));
}

void Shower::Variables() {
    Rest(Records<V_V>(0, [&](const V_V& variable, std::size_t) {
        Ends(variable.Name);
        Ends(variable.Type);
        Ends(variable.Val);
        out_ << VariableLine(variable) << '\n';
    }));
}

void Shower::InitialFacts() {
    Rest(Records<I_K>(0, [&](const I_K& initial, std::size_t) {
        Ends(initial.K_Name);
        Ends(initial.K_Val);
        Ends(initial.Pres);
        out_ << InitialLine(initial) << '\n';
    }));
}

void Shower::Index() {
    Rest(Records<RuleIndexRecord>(0, [&](const RuleIndexRecord& record, std::size_t) {
        Ends(record.name);
        out_ << IndexRow(record) << '\n';
    }));
}

using ShowKind = void (Shower::*)();

ShowKind KindOf(const std::string& path) {
    static const std::map<std::string, ShowKind> kinds = {
        {".mrv", &Shower::Project},   {".lse", &Shower::System},       {".tol", &Shower::Tools},
        {".dde", &Shower::Dde},       {".aux", &Shower::Names},        {".rst", &Shower::Names},
        {".tag", &Shower::Names},     {".typ", &Shower::Names},        {".fac", &Shower::Facts},
        {".var", &Shower::Variables}, {".ikw", &Shower::InitialFacts}, {".siz", &Shower::Index}};
    const std::size_t dot = path.find_last_of(".\\/");
    const auto found = kinds.find(Folded(dot == path.npos ? "" : path.substr(dot)));
    return found == kinds.end() ? nullptr : found->second;
}

} // namespace

int Show(const std::string& path, const Report& report) {
    const ShowKind kind = KindOf(path);
    if (!kind)
        return report.Stop(path, "no kind of file that can be shown");
    std::string bytes;
    if (!files::ReadWhole(path.c_str(), files::Mode::Read, bytes))
        return report.Stop(path, LastReason());
    (Shower(bytes, report.out).*kind)();
    return kNothingFound;
}

} // namespace console
