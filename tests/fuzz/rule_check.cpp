// The rule check. The input is where a text before left the check, how the index cuts the text, and
// the text.
#include "build/core/rule_checker.h"
#include "build/core/rule_scanner.h"
#include "tests/core/rule_reference.h"
#include "tests/fuzz/fuzz.h"

namespace {

using zentrik_test::CheckLog;
using zentrik_test::IndexRecord;

struct Result {
    std::vector<std::string> findings;
    Lexical anul;

    bool operator==(const Result&) const = default;
};

Result Checked(const std::string& text, const std::vector<RuleIndexRecord>& index, Lexical anul) {
    CheckLog log;
    CheckRules(text, index, anul, log);
    return {log.findings, anul};
}

void EqualsThePlainCheck(const std::string& text, const std::vector<RuleIndexRecord>& index,
                         Lexical anul) {
    const Result result = Checked(text, index, anul);
    zentrik_test::ReferenceCheck plain(text, static_cast<int>(anul));
    plain.Check(index);
    fuzz::Holds(result.findings == plain.findings, "the check finds what the plain check finds");
    fuzz::Holds(static_cast<int>(result.anul) == plain.anul(),
                "the check ends where the plain one does");
}

// The check goes through a rule in pieces of 8192 bytes. Blanks before the rule mean nothing, and
// move the border between two pieces to `cut`.
void EqualsItselfInPieces(const std::string& text, std::size_t cut, Lexical anul) {
    constexpr std::size_t kPiece = 8192;
    const std::string moved = std::string(kPiece - cut % kPiece, ' ') + text;
    fuzz::Holds(Checked(text, zentrik_test::WholeIndex(text), anul) ==
                    Checked(moved, zentrik_test::WholeIndex(moved), anul),
                "the findings are the same for a text given whole or in pieces");
}

// Every stop of the scanner as its place and words.
std::vector<std::pair<std::size_t, WordSet>> Stops(std::string_view text, std::size_t piece) {
    WordScanner scanner;
    std::vector<std::pair<std::size_t, WordSet>> stops;
    for (std::size_t from = 0; from < text.size(); from += piece) {
        const std::string_view part = text.substr(from, piece);
        const char* const end = part.data() + part.size();
        for (auto stop = scanner.Next(part.data(), end); stop.at != end;
             stop = scanner.Next(stop.at + 1, end))
            stops.emplace_back(stop.at - text.data(), stop.words);
    }
    return stops;
}

} // namespace

void Fuzz(std::string_view bytes) {
    fuzz::Input input(bytes);
    const auto anul = static_cast<Lexical>(input.Byte() % 4);
    std::vector<RuleIndexRecord> index(input.Byte() % 8);
    for (std::size_t i = 0; i < index.size(); ++i)
        index[i] =
            IndexRecord("Rule " + std::to_string(i), static_cast<std::int32_t>(input.Word()) - 100);
    const std::size_t cut = input.Word();
    const std::string text(input.Rest());
    EqualsThePlainCheck(text, index, anul);
    EqualsThePlainCheck(text, zentrik_test::WholeIndex(text), anul);
    EqualsItselfInPieces(text, cut, anul);
    fuzz::Holds(Stops(text, text.size() + 1) == Stops(text, 1 + cut % 13),
                "the scanner finds the same words in a text given whole or in pieces");
}
