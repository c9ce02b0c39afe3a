#include "console/check.h"

#include "console/loaded_project.h"
#include "console/rule_findings.h"
#include "console/warnings.h"

#include <iterator>

namespace console {

namespace {

void Append(std::vector<Finding>& findings, std::vector<Finding> more) {
    findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
}

} // namespace

int Check(const CheckOptions& options, const Report& report) {
    const LoadedProject project = LoadProject(options.project);
    if (!project.unreadable.empty())
        return report.Stop(project.unreadable, project.reason);
    std::vector<Finding> findings = RuleFindings(project);
    Append(findings, FileWarnings(project));
    if (options.names)
        Append(findings, NameWarnings(project));
    Print(findings, options.format, report.out);
    if (!project.damaged.empty())
        return report.Stop(project.damaged, project.wrong);
    return findings.empty() ? kNothingFound : kFound;
}

} // namespace console
