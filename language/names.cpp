#include "language/names.h"

#include "language/used_names.h"

#include <algorithm>
#include <map>

namespace morv {

namespace {

using NameSet = std::unordered_set<std::string>;

const NameSet kKeywords = {
    "alignas",    "alignof",   "and",          "and_eq",      "asm",           "auto",
    "bitand",     "bitor",     "bool",         "break",       "case",          "catch",
    "char",       "char16_t",  "char32_t",     "class",       "compl",         "const",
    "const_cast", "constexpr", "continue",     "decltype",    "default",       "delete",
    "do",         "double",    "dynamic_cast", "else",        "enum",          "explicit",
    "export",     "extern",    "false",        "float",       "for",           "friend",
    "goto",       "if",        "inline",       "int",         "long",          "mutable",
    "namespace",  "new",       "noexcept",     "not",         "not_eq",        "nullptr",
    "operator",   "or",        "or_eq",        "private",     "protected",     "public",
    "register",   "return",    "short",        "signed",      "sizeof",        "static",
    "struct",     "switch",    "template",     "this",        "thread_local",  "throw",
    "true",       "try",       "typedef",      "typeid",      "typename",      "union",
    "unsigned",   "using",     "virtual",      "void",        "volatile",      "wchar_t",
    "while",      "xor",       "xor_eq",       "static_cast", "static_assert", "reinterpret_cast"};

// What these words mean between Begin and EndSystem, where facts and variables are declared.
const NameSet kRuleWords = {"Rule",  "EndRule",  "If",        "EndIf",    "IfOr",   "EndIfOr",
                            "IfXor", "EndIfXor", "IfAny",     "EndIfAny", "ForAll", "EndForAll",
                            "Then",  "Else",     "Otherwise", "PF",       "si",     "no",
                            "TRUE",  "FALSE",    "NULL"};

const NameSet kCertainties = {"VERYLOW", "LOW",      "NOTVERYLOW", "NORMAL", "NOTVERYHIGH",
                              "HIGH",    "VERYHIGH", "FULL",       "NULL"};

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Compilers take letters beyond ASCII in UTF-8.
bool IsUtf8(const std::string& text) {
    int more = 0; // bytes of the letter that has begun
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool inside = (byte & 0xC0U) == 0x80;
        if (inside != (more > 0))
            return false;
        more = inside ? more - 1 : byte < 0x80 ? 0 : byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    }
    return more == 0;
}

bool IsName(const std::string& text) {
    return !text.empty() && !IsDigit(text[0]) && IsUtf8(text) &&
           std::all_of(text.begin(), text.end(), [](char c) {
               return IsLetter(c) || IsDigit(c) || (static_cast<unsigned char>(c) & 0x80U) != 0;
           });
}

class Checker {
public:
    explicit Checker(const ProjectNames& project) : project_(project) {}

    std::vector<NameFault> All() {
        Globals();
        NamesOnce items;
        for (const Name& item : project_.items) {
            Spelling(item, "", "item", DeclaredName(item.text));
            Once(items, item, "", "item", DeclaredName(item.text));
        }
        for (const SystemNames& system : project_.systems)
            Locals(system);
        if (ToldByWords())
            for (const SystemNames& system : project_.systems)
                Uses(system);
        return std::move(faults_);
    }

private:
    using NamesOnce = std::map<std::string, std::string>; // and what it is: "fact"

    void Fault(const Name& name, const std::string& where, const std::string& text) {
        faults_.push_back({name.place, where, text});
    }

    // Returns whether the name can be one.
    bool Spelling(const Name& name, const std::string& where, const std::string& kind,
                  const std::string& declared) {
        const std::string told = "the " + kind + " " + name.text;
        if (!IsName(declared))
            Fault(name, where, "the " + kind + " \"" + name.text + "\" is no name in C++");
        else if (kKeywords.count(declared) != 0)
            Fault(name, where, told + " is a keyword of C++");
        else
            return true;
        return false;
    }

    void Once(NamesOnce& names, const Name& name, const std::string& where, const std::string& kind,
              const std::string& declared) {
        const auto [before, is_new] = names.emplace(declared, kind);
        if (is_new)
            return;
        Fault(name, where,
              before->second == kind
                  ? "the " + kind + " " + declared + " is there twice"
                  : "the " + kind + " " + declared + " is called like a " + before->second);
    }

    // Results and systems stand side by side; what belongs to a system may hide them.
    void Globals() {
        NamesOnce globals;
        for (const Name& result : project_.results) {
            if (kCertainties.count(result.text) != 0)
                Fault(result, "", "the result " + result.text + " is called like a certainty");
            else if (Spelling(result, "", "result", result.text))
                Once(globals, result, "", "result", result.text);
        }
        for (const SystemNames& system : project_.systems)
            if (Spelling(system.name, "", "system", system.name.text))
                Once(globals, system.name, "", "system", system.name.text);
    }

    void Locals(const SystemNames& system) {
        NamesOnce locals;
        const auto check = [&](const Name& name, const char* kind, const std::string& declared) {
            if (!Spelling(name, system.name.text, kind, declared))
                return;
            if (kRuleWords.count(declared) != 0)
                Fault(name, system.name.text,
                      std::string("the ") + kind + " " + declared +
                          " is a word of the rule language");
            else
                Once(locals, name, system.name.text, kind, declared);
        };
        for (const Name& fact : system.facts)
            check(fact, "fact", fact.text);
        for (const Name& variable : system.variables)
            check(variable, "variable", DeclaredName(variable.text));
    }

    // Whether the words of all texts tell what is declared.
    bool ToldByWords() const {
        return project_.others_are_all && !PastesNames(project_.others) &&
               std::none_of(project_.systems.begin(), project_.systems.end(),
                            [](const SystemNames& system) { return PastesNames(system.text); });
    }

    void Uses(const SystemNames& system) {
        const std::string own = OwnNames(system);
        for (const UsedName& used : UndeclaredNames(system.text, own, Elsewhere())) {
            const int line = system.first_line + used.line - 1;
            faults_.push_back(
                {system.file + ":" + std::to_string(line), "", Undeclared(used.name, system)});
        }
    }

    // The names that the rules of a system may use without declaring them.
    std::string OwnNames(const SystemNames& system) const {
        std::string names = "PF ";
        for (const Name& fact : system.facts)
            names += fact.text + " ";
        for (const Name& variable : system.variables)
            names += DeclaredName(variable.text) + " ";
        return names;
    }

    const NameSet& Elsewhere() {
        if (!elsewhere_.empty())
            return elsewhere_;
        elsewhere_ = WordsOf(project_.others);
        for (const Name& result : project_.results)
            elsewhere_.insert(result.text);
        for (const SystemNames& system : project_.systems) {
            elsewhere_.insert(system.name.text);
            for (const std::string& word : MacroWords(system.text))
                elsewhere_.insert(word);
        }
        return elsewhere_;
    }

    std::string Undeclared(const std::string& name, const SystemNames& system) const {
        for (const SystemNames& other : project_.systems)
            if (&other != &system)
                for (const Name& fact : other.facts)
                    if (fact.text == name)
                        return name + " is a fact of " + other.name.text +
                               "; facts are private to their system";
        return name + " is not declared: no fact of " + system.name.text + ", no result";
    }

    const ProjectNames& project_;
    NameSet elsewhere_;
    std::vector<NameFault> faults_;
};

} // namespace

std::string DeclaredName(const std::string& declarator) {
    const std::size_t first = declarator.find_first_not_of("*& ");
    if (first == std::string::npos)
        return declarator;
    const std::size_t bracket = declarator.find_first_of("[(", first);
    std::string name = declarator.substr(first, bracket - first);
    while (!name.empty() && name.back() == ' ')
        name.pop_back();
    return name;
}

std::vector<NameFault> CheckNames(const ProjectNames& project) {
    return Checker(project).All();
}

} // namespace morv
