// Rules as functions of their own, in sources of some hundred rules.
#pragma once

#include "language/extern_code.h"
#include "language/quiet_rules.h"
#include "translate_facts.h"
#include "translate_tables.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace morv {

class RulePieces {
public:
    RulePieces(const std::unordered_set<std::string>& results, const ExternCode& code,
               const std::string& defines, const QuietRules& quiet, Marks& marks)
        : results_(results), code_(code), defines_(defines), quiet_(quiet), marks_(marks) {}

    // Puts the rules of a system into sources of their own, or all into the source `text` when
    // there are no `sources`. Returns their tables.
    std::vector<RuleGroup> Put(const TranslatedSystem& system, std::vector<Piece>* sources,
                               std::string& text);

private:
    RuleGroup PutPiece(const TranslatedSystem& system, const std::vector<const Part*>& rules,
                       std::vector<Piece>* sources, std::string& text);
    std::string Sources(const TranslatedSystem& system, const Part& rule) const;
    std::string PieceName(const TranslatedSystem& system, const Part& first);

    const std::unordered_set<std::string>& results_; // of the project
    const ExternCode& code_;
    const std::string& defines_; // of the text around the rules so far
    const QuietRules& quiet_;
    Marks& marks_;
    std::unordered_set<std::string> names_; // of all pieces so far
};

} // namespace morv
