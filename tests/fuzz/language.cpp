// The words and blocks of the rule language.
#include "language/rule_blocks.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>

namespace {

auto LineEnds(std::string_view text) {
    return std::count(text.begin(), text.end(), '\n');
}

void TokensAreTheText(const std::string& text) {
    std::string whole;
    auto line = 1 + LineEnds("");
    for (const morv::Token& token : morv::Tokens(text)) {
        fuzz::Holds(token.line == line, "a token knows its line");
        fuzz::Holds(!token.text.empty(), "a token has a text");
        whole += token.text;
        line += LineEnds(token.text);
    }
    fuzz::Holds(whole == text, "the tokens put together are the text again");
}

void BlocksKeepTheLines(const std::string& text) {
    constexpr int kFirst = 10;
    std::vector<morv::Complaint> complaints;
    const std::vector<morv::Part> parts =
        morv::TranslateBlocks(text, kFirst, "plant", complaints, true);
    // After a complaint the code is not used.
    for (const morv::Part& part : parts)
        fuzz::Holds(!complaints.empty() || LineEnds(part.code) == LineEnds(part.text),
                    "translated blocks have the same number of lines");
    for (const morv::Complaint& complaint : complaints)
        fuzz::Holds(complaint.line >= kFirst && complaint.line <= kFirst + LineEnds(text),
                    "a complaint is about a line of the text");
}

} // namespace

void Fuzz(std::string_view input) {
    const std::string text(input);
    TokensAreTheText(text);
    BlocksKeepTheLines(text);
    fuzz::Holds(LineEnds(morv::Quoted(text)) == 0, "a quoted text stands on one line");
}
