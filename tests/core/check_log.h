// What the tests of the rule check share: a view that logs, and rules with their index.
#pragma once

#include "build/core/rule_checker.h"

#include <string>
#include <vector>

namespace zentrik_test {

class CheckLog : public CheckView {
public:
    void SystemFile(const char* path) override { log.push_back("system " + std::string(path)); }
    void RulesFile(const char* path) override { log.push_back("rules " + std::string(path)); }
    void RuleName(const std::string& name) override { log.push_back("rule " + name); }
    void Progress(char c) override { progress += c; }
    void Finding(const std::string& line) override {
        findings.push_back(line);
        log.push_back("finding " + line);
    }
    std::string ResultsFile() override {
        log.push_back("results");
        return results_file;
    }

    std::string results_file;
    std::vector<std::string> findings;
    std::vector<std::string> log; // everything but the progress, in order
    std::string progress;         // its characters
};

inline RuleIndexRecord IndexRecord(const std::string& name, std::int32_t size) {
    RuleIndexRecord record{};
    SetText(record.name, name);
    record.size = size;
    return record;
}

// An index of one rule, "R", that takes the whole text.
inline std::vector<RuleIndexRecord> WholeIndex(const std::string& text) {
    return {IndexRecord("R", static_cast<std::int32_t>(text.size()))};
}

} // namespace zentrik_test
