// A system's engine(), with what it has beside the rules or with all rules in it.
#pragma once

#include "language/extern_code.h"
#include "translate_facts.h"
#include "translate_tables.h"

#include <set>
#include <string>
#include <vector>

namespace morv {

class EngineText {
public:
    // `text` takes the code.
    EngineText(const TranslatedSystem& system, const ExternCode& code, Marks& marks,
               std::string& text)
        : system_(system), code_(code), marks_(marks), text_(text) {}

    // Puts an engine() that calls the rules in these tables, and the initial values when they stand
    // in a source of their own.
    void PutSplit(std::vector<RuleGroup> groups, bool initial_apart);

    // Puts an engine() that holds the rules itself.
    void PutWhole();

private:
    void PutTables();
    void PutTextTable();
    void PutEngine(bool split);
    std::set<std::string> WordsAround() const;
    void PutLines(const std::string& label, const std::vector<LineText>& lines);
    void PutInitial();
    void PutCalls();
    void PutRules();

    const TranslatedSystem& system_;
    const ExternCode& code_;
    Marks& marks_;
    std::string& text_;
    std::vector<RuleGroup> groups_;
    bool initial_apart_ = false;
};

} // namespace morv
