// The rule check: the block structure of every rule of every system of a project.
#pragma once

#include "build/core/rule_structure.h"
#include "project/core/project_file.h"
#include "shell/core/window_handle.h"
#include "system/core/rule_index.h"

#include <string>
#include <string_view>
#include <vector>

// Where in the rules of a system something is wrong.
struct RulePlace {
    RuleError error;
    int rule;          // the record of the index that the rule has, from 0
    std::size_t begin; // of the rule in the text
    std::size_t word;  // of the faulty word; that of the rule when the whole rule is meant
    int line;          // of the word in the text, from 0, counting every LF
};

// Where the check shows what it does and what it found.
class CheckView {
public:
    virtual ~CheckView() = default;
    virtual void SystemFile(const char* path) = 0;
    virtual void RulesFile(const char* path) = 0;
    virtual void RuleName(const std::string& name) = 0;
    // The character reached, at a pace of the checker's choice; always the last one of a rule.
    virtual void Progress(char c) = 0;
    virtual void Finding(const std::string& line) = 0; // one line of the findings list
    // A finding about a rule or an opposite; a view that only lists needs no more than its line.
    virtual void RuleFinding(const std::string& line, const RulePlace&) { Finding(line); }
    virtual void OppositeFinding(const std::string& line) { Finding(line); }
    virtual std::string ResultsFile() = 0; // asked before the first opposite of each run
};

// What the check is in the middle of. This carries over from rule to rule and from run to run: a
// comment or string that is left open hides the blocks of the rules behind it.
enum class Lexical { Code, LineComment, BlockComment, String };

// Checks the systems of a project in order. Returns false, after "Open System Error" in a box owned
// by `owner`, when a system file is missing or no system file at all.
bool CheckProject(const ProjectRecord& project, Lexical& anul, CheckView& view, WindowHandle owner);

// Checks the rules of one system: `text` is its rules file, of which each record of `index` takes
// the next `size` bytes.
void CheckRules(std::string_view text, const std::vector<RuleIndexRecord>& index, Lexical& anul,
                CheckView& view);
