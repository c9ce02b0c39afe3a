// The facts and results that rules use.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

namespace morv {

struct UsedName {
    std::string name;
    int line; // from 1
};

// The names that `text` uses as only facts and results are used, "NAME.value()" or
// "deduce(&NAME)", and that are neither words of `own` nor of `elsewhere` and look declared nowhere
// in it. Each is told once a rule.
std::vector<UsedName> UndeclaredNames(const std::string& text, const std::string& own,
                                      const std::unordered_set<std::string>& elsewhere);

// All words of a text, those in comments and strings left out.
std::unordered_set<std::string> WordsOf(const std::string& text);

// All words of the #define lines of a text: a macro may declare something.
std::unordered_set<std::string> MacroWords(const std::string& text);

// Whether a macro of the text puts names together, so that no look at words tells what is declared.
bool PastesNames(const std::string& text);

} // namespace morv
