// The text of a rules file: renumbering its rules, and adding, removing and copying them. A rule
// starts at the word "Rule" and ends behind the word "EndRule"; both are found as FindStr finds
// them, also inside other words.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The name of a rule in the rules list and in the index: "Rule " and its number.
std::string RuleName(int number);

struct RenumberedRules {
    std::string text;
    std::vector<std::int32_t> sizes; // one per rule: bytes to the next rule, see RuleIndexRecord
    bool numbers_changed = false;    // a rule had another number, or none
};

// Gives every rule of a text its number and its frame: a missing "Rule" before an "EndRule", a
// missing "EndRule", the blank and the number behind "Rule" are put in. Takes time in proportion to
// the text.
RenumberedRules Renumber(std::string_view text);

// The bytes of the index file of rules with these sizes.
std::string IndexBytes(const std::vector<std::int32_t>& sizes);

// What the rules list shows of an index file.
struct IndexedRules {
    std::vector<std::string> names;
    int count = 0; // records, also those that are not listed
};

// As the editor starts with an index: its first record is listed whatever it is, also when it is
// cut short or missing (an empty line), of the others those that are live.
IndexedRules FirstRules(std::string_view index);

// As another rules file is opened: every record is listed.
IndexedRules AllRules(std::string_view index);

// Inserts `string` at `position`, with `ret` 1 followed by CR LF.
void InsText(std::string& text, std::string_view string, std::size_t position, int ret);

// Where a rule stands: from its "Rule" to behind its "EndRule" and the two characters after that.
// `end` can lie behind the end of the text.
struct RuleSpan {
    std::size_t begin;
    std::size_t end;
};

// Finds rule `row` (the first is 0) of a renumbered text.
std::optional<RuleSpan> FindRule(std::string_view text, int row);

// Removes rule `row`. A rule whose "EndRule" is not followed by two characters stays.
void CutRule(std::string& text, int row);

// The bytes of rule `row`, empty when there is none.
std::string RuleBytes(std::string_view text, int row);

// The content of a rules file after `rule` was copied to its end. The last byte of the file stays
// the last one.
std::string WithRule(std::string_view file, std::string_view rule);
