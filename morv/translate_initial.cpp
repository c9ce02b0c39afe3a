#include "translate_initial.h"

#include "language/splitting.h"

#include <set>

namespace morv {

namespace {

// Fewer are compiled with the engine() that takes them up.
constexpr std::size_t kLeastApart = 200;

std::string TextOf(const TranslatedSystem& system) {
    std::string text;
    for (const InitialFact& each : system.text.initial)
        text += each.fact + " " + each.value + " " + each.certainty + "\n";
    return text;
}

} // namespace

std::string InitialValues(const TranslatedSystem& system, Marks& marks) {
    int line = system.text.initial[0].line;
    std::string text = marks.At(system.name + ".initial", line, system.name);
    for (const InitialFact& fact : system.text.initial) {
        text.append(static_cast<std::size_t>(fact.line - line), '\n');
        line = fact.line;
        text += "morv::TakeUp(" + fact.fact + ", (double)" + fact.value + ", " + fact.certainty +
                ", " + Quoted(fact.value) + ");";
    }
    return text;
}

bool HasInitialSource(const TranslatedSystem& system, const ExternCode& code) {
    return system.text.initial.size() >= kLeastApart && !code.unclear &&
           StandsApart(TextOf(system), code);
}

std::string InitialCall(const TranslatedSystem& system) {
    return system.space + "::morv_initial();";
}

std::string InitialSource(const TranslatedSystem& system,
                          const std::unordered_set<std::string>& results, const ExternCode& code,
                          const std::string& defines, Marks& marks) {
    const std::set<std::string> words = WithMacros(WordsOf(TextOf(system), false), code);
    std::string text = "#include \"rules.h\"\n" + Warnings();
    for (const std::string& word : words)
        if (results.count(word) != 0)
            text += "extern DATAFACTRESULT " + word + ";\n";
    Declare(system, true, &words, text);
    return text + defines + "namespace " + system.space + " { void morv_initial(); }\nvoid " +
           system.space + "::morv_initial() { " + Using(system, true, words) +
           InitialValues(system, marks) + "\n}\n";
}

} // namespace morv
