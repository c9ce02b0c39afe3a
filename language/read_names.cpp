#include "language/generated_lines.h"
#include "language/names.h"

#include <algorithm>
#include <map>

namespace morv {

namespace {

constexpr char kFacts[] = "\tstatic DATAFACT *PF";
constexpr char kVariable[] = "\t//- Local Var Declaration";
constexpr char kValues[] = "// - System Local Vars";
constexpr char kResults[] = "DATAFACTRESULT";
constexpr char kItems[] = "char *Items[]={";

class NamesReader {
public:
    NamesReader(const std::string& source, std::string file)
        : lines_(LinesOf(source)), file_(std::move(file)) {}

    // Everything outside the systems goes to the others.
    void Read(ProjectNames& project) {
        std::map<std::string, Name> declared;
        for (at_ = 0; at_ < lines_.size(); ++at_) {
            if (IsSystemDeclaration(lines_[at_])) {
                const SystemDeclaration system = ReadSystemDeclaration(lines_[at_]);
                declared[system.engine] = {system.name, Place(at_)};
            } else if (IsBegin(lines_[at_])) {
                SystemNames& system = project.systems.emplace_back();
                system.name = declared[EngineOfBegin(lines_[at_])];
                system.file = file_;
                ReadSystem(system);
            } else {
                project.others += lines_[at_] + "\n";
            }
        }
    }

private:
    std::string Place(std::size_t at) const { return file_ + ":" + std::to_string(at + 1); }

    void ReadSystem(SystemNames& system) {
        ++at_;
        for (; at_ < lines_.size() && !lines_[at_].starts_with(kFacts); ++at_)
            if (lines_[at_] == kEndSystem)
                return;
        if (at_ == lines_.size())
            return;
        ReadFacts(system);
        std::size_t variables = 0;
        for (; at_ + 1 < lines_.size() && lines_[at_] == kVariable; at_ += 2)
            ++variables;
        system.first_line = static_cast<int>(at_) + 1;
        for (; at_ < lines_.size() && lines_[at_] != kEndSystem; ++at_) {
            system.text += lines_[at_] + "\n";
            if (variables > 0 && lines_[at_] == kValues) {
                ReadVariables(system, variables);
                variables = 0;
            }
        }
    }

    // "	static DATAFACT *PF, Boiler, Valve;"
    void ReadFacts(SystemNames& system) {
        std::string rest = lines_[at_].substr(sizeof kFacts - 1);
        rest = rest.substr(0, rest.rfind(';'));
        for (std::size_t from = rest.find(','); from != std::string::npos;) {
            const std::size_t to = rest.find(',', from + 1);
            system.facts.push_back({Trimmed(rest.substr(from + 1, to - from - 1)), Place(at_)});
            from = to;
        }
        ++at_;
    }

    // Their declarations have the type before the name; where they get their values each name
    // stands alone before a "=".
    void ReadVariables(SystemNames& system, std::size_t count) const {
        for (std::size_t at = at_ + 1; at < lines_.size() && count > 0; ++at, --count)
            system.variables.push_back({lines_[at].substr(0, lines_[at].find('=')), Place(at)});
    }

    const std::vector<std::string> lines_;
    const std::string file_;
    std::size_t at_ = 0;
};

std::vector<Name> ReadResults(const std::string& header, const std::string& file) {
    std::vector<Name> results;
    const std::vector<std::string> lines = LinesOf(header);
    const auto heading = std::find(lines.rbegin(), lines.rend(), kResults);
    if (heading == lines.rend())
        return results;
    for (auto at = heading.base(); at != lines.end() && !at->starts_with("#"); ++at) {
        const std::string name = Trimmed(*at);
        results.push_back({Trimmed(name.substr(0, name.find_last_of(",;"))),
                           file + ":" + std::to_string(at - lines.begin() + 1)});
    }
    return results;
}

std::vector<Name> ReadItems(const std::string& dde) {
    std::vector<Name> items;
    const std::vector<std::string> lines = LinesOf(dde);
    auto at = std::find_if(lines.begin(), lines.end(),
                           [](const std::string& line) { return line == kItems; });
    if (at == lines.end())
        return items;
    for (++at; at != lines.end() && *at != "};"; ++at) {
        const std::size_t from = at->find('"'), to = at->rfind('"');
        if (from < to)
            items.push_back({at->substr(from + 1, to - from - 1),
                             "ddecom.cpp:" + std::to_string(at - lines.begin() + 1)});
    }
    return items;
}

} // namespace

ProjectNames ReadNames(const std::string& source, const std::string& source_file,
                       const std::string& header, const std::string& header_file,
                       const std::string& dde, const std::string& headers) {
    ProjectNames project;
    project.others = header + "\n" + headers + "\n";
    NamesReader(source, source_file).Read(project);
    project.results = ReadResults(header, header_file);
    project.items = ReadItems(dde);
    return project;
}

} // namespace morv
