#include "language/system_text.h"

#include "language/tokens.h"

#include <algorithm>
#include <cstring>

namespace morv {

namespace {

// What stands between `start` and `end` of a line; whether it is such a line.
bool Between(const std::string& line, const std::string& start, const std::string& end,
             std::string& between) {
    if (line.size() < start.size() + end.size() || !line.starts_with(start) || !line.ends_with(end))
        return false;
    between = line.substr(start.size(), line.size() - start.size() - end.size());
    return true;
}

// Whether a value can go into a table as it is: one expression, with no comment to hide what
// follows.
bool IsValue(const std::string& text) {
    int depth = 0;
    bool any = false;
    for (const Token& token : Tokens(text)) {
        if (token.kind == Token::Comment || token.text == ";" || token.text == "{" ||
            token.text == "}" || token.text == "#" || token.text == "\\")
            return false;
        if (token.kind == Token::Text &&
            (token.text.size() < 2 || token.text.back() != token.text.front()))
            return false;
        depth += token.text == "(" ? 1 : token.text == ")" ? -1 : 0;
        if (depth < 0 || (depth == 0 && token.text == ","))
            return false;
        any = any || token.kind != Token::Blank;
    }
    return any && depth == 0;
}

bool AreHex(const std::string& text, std::size_t at, std::size_t count) {
    return at + count <= text.size() &&
           text.find_first_not_of("0123456789abcdefABCDEF", at) >= at + count;
}

// Whether C++ takes it as a text, or as several in a row.
bool IsText(const std::string& value) {
    for (const Token& token : Tokens(value)) {
        if (token.kind != Token::Blank && (token.kind != Token::Text || token.text[0] != '"'))
            return false;
        for (std::size_t at = 0; (at = token.text.find('\\', at)) != std::string::npos; at += 2) {
            // The last quote must close the text.
            const char next = at + 2 < token.text.size() ? token.text[at + 1] : '\0';
            if (next == 'x' || next == 'u' || next == 'U') {
                if (!AreHex(token.text, at + 2, next == 'x' ? 1 : next == 'u' ? 4 : 8))
                    return false;
            } else if (next == '\0' || std::strchr("abfnrtv01234567\\\"'?", next) == nullptr)
                return false;
        }
    }
    return IsValue(value);
}

// What users typed stands between quotes as it is, with quotes and backslashes of its own.
std::string AsText(const std::string& value) {
    if (IsText(value) || value.size() < 2 || value.front() != '"' || value.back() != '"')
        return value;
    std::string text = "\"";
    for (const char c : value.substr(1, value.size() - 2))
        text += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
    return text + "\"";
}

bool IsPlainType(const std::string& type) {
    static const char* const words[] = {"bool",  "char",   "short",    "int",   "long",
                                        "float", "double", "unsigned", "signed"};
    const std::vector<std::string> names = NamesIn(type + ";");
    return !names.empty() && std::all_of(names.begin(), names.end(), [](const std::string& name) {
        return std::find(std::begin(words), std::end(words), name) != std::end(words);
    }) && type.find_first_not_of("abcdefghijklmnopqrstuvwxyz ") == std::string::npos;
}

// Whether a declaration may begin with it: "std::string", "Curve", "const char *".
bool IsType(const std::string& type) {
    const std::vector<Token> tokens = Tokens(type);
    return !tokens.empty() && tokens[0].kind == Token::Word &&
           std::all_of(tokens.begin(), tokens.end(), [](const Token& token) {
               return token.kind == Token::Word || token.kind == Token::Blank ||
                      IsOneOf(token.text, {":", "<", ">", ",", "*"});
           });
}

bool IsOneWord(const std::string& text) {
    const std::vector<Token> tokens = Tokens(text);
    return tokens.size() == 1 && tokens[0].kind == Token::Word && (text[0] < '0' || text[0] > '9');
}

class SystemReader {
public:
    SystemReader(const std::vector<std::string>& lines, int first) : lines_(lines), first_(first) {}

    SystemText All() {
        ReadFacts();
        ReadVariables();
        ReadOpposites();
        while (ReadSettings()) {
        }
        if (result_.settings.size() == result_.facts.size()) {
            ReadValues();
            ReadInitial();
        }
        result_.rest.line = first_ + static_cast<int>(at_);
        for (std::size_t at = at_; at < lines_.size(); ++at)
            result_.rest.text += lines_[at] + "\n";
        return std::move(result_);
    }

private:
    // The line `ahead` of the next one that is not empty; empty beyond the end.
    const std::string& Line(std::size_t ahead = 0) const {
        static const std::string none;
        return at_ + ahead < lines_.size() ? lines_[at_ + ahead] : none;
    }

    int Number(std::size_t ahead = 0) const { return first_ + static_cast<int>(at_ + ahead); }

    // Leaves empty lines behind where a line follows that `is` what is looked for.
    template <class Test> bool Find(Test is) {
        const std::size_t before = at_;
        while (at_ < lines_.size() && lines_[at_].empty())
            ++at_;
        if (at_ < lines_.size() && is(lines_[at_]))
            return true;
        at_ = before;
        return false;
    }

    void ReadFacts() {
        const std::string heading = "\t//- Facts declaration", start = "\tstatic DATAFACT *PF";
        if (!Find([&](const std::string& line) { return line == heading; }) ||
            !Line(1).starts_with(start))
            return;
        result_.facts = NamesIn(Line(1).substr(start.size()));
        at_ += 2;
    }

    void ReadVariables() {
        std::string declared;
        while (
            Find([](const std::string& line) { return line == "\t//- Local Var Declaration"; }) &&
            Between(Line(1), "\t", ";", declared)) {
            const std::size_t blank = declared.rfind(' ');
            if (blank == std::string::npos || !IsType(declared.substr(0, blank)) ||
                !IsOneWord(declared.substr(blank + 1)))
                return;
            result_.variables.push_back({declared.substr(0, blank), declared.substr(blank + 1)});
            if (!IsPlainType(result_.variables.back().type))
                result_.own_type = result_.variables.back().type;
            at_ += 2;
        }
    }

    void ReadOpposites() {
        std::string names;
        while (Find([&](const std::string& line) {
            return Between(line, "\tset_opposites(", ");", names);
        })) {
            result_.opposites.push_back({Number(), Line()});
            ++at_;
        }
    }

    // The lines about the next fact.
    bool ReadSettings() {
        static const char* const fields[] = {
            ".name = ",   ".type = ",   "",        "",           ".inf_limit = ", ".sup_limit = ",
            ".step_v = ", ".lowest = ", ".low = ", ".normal = ", ".high = ",      ".highest = "};
        const std::size_t count = result_.settings.size();
        if (count == result_.facts.size() ||
            !Find([](const std::string& line) { return line == "//- Datafact"; }))
            return false;
        FactSettings settings{result_.facts[count], {}};
        for (std::size_t i = 0; i < 12; ++i) {
            const std::string object = "\t" + settings.fact;
            std::string value;
            const bool as_expected =
                i == 2 ? Between(Line(i + 1), "\tsprintf (" + settings.fact + ".description, ",
                                 ");", value)
                : i == 3
                    ? Between(Line(i + 1), "\tsprintf (" + settings.fact + ".fact_value.units, ",
                              ");", value)
                : i < 4 ? Between(Line(i + 1), object + fields[i], ";", value)
                        : Between(Line(i + 1), object + ".fact_value" + fields[i], ";", value);
            if (i == 2 || i == 3)
                value = AsText(value);
            if (!as_expected || !IsValue(value))
                return false;
            settings.values.push_back({Number(i + 1), value});
        }
        at_ += 13;
        result_.settings.push_back(std::move(settings));
        return true;
    }

    // A system whose file of variables is empty has the heading alone.
    void ReadValues() {
        if (!Find([](const std::string& line) { return line == "// - System Local Vars"; }))
            return;
        for (std::size_t i = 0; i < result_.variables.size(); ++i) {
            std::string value;
            if (!Between(Line(i + 1), result_.variables[i].name + "=", ";", value) ||
                !IsValue(value)) {
                result_.values.clear();
                return;
            }
            result_.values.push_back({Number(i + 1), Line(i + 1)});
        }
        at_ += 1 + result_.variables.size();
    }

    void ReadInitial() {
        if (!Find([](const std::string& line) { return line == "//- Deduce Facts Values"; }))
            return;
        const std::size_t heading = at_++;
        while (Find([](const std::string& line) {
            return line.find(".assign((double)") != std::string::npos;
        })) {
            const std::string& line = Line();
            const std::size_t dot = line.find(".assign((double)");
            InitialFact fact{Number(), line.substr(0, dot), "", ""};
            std::string both;
            const std::size_t comma = line.rfind(',');
            if (!IsOneWord(fact.fact) || Line(1) != "deduce(&" + fact.fact + ");" ||
                comma == std::string::npos ||
                !Between(line, fact.fact + ".assign((double)", ");", both))
                break;
            const std::size_t split = both.rfind(',');
            if (split == std::string::npos)
                break;
            fact.value = both.substr(0, split);
            fact.certainty = both.substr(split + 1);
            if (!IsValue(fact.value) || !IsValue(fact.certainty))
                break;
            result_.initial.push_back(std::move(fact));
            at_ += 2;
        }
        if (result_.initial.empty())
            at_ = heading;
    }

    const std::vector<std::string>& lines_;
    const int first_;
    std::size_t at_ = 0;
    SystemText result_;
};

} // namespace

std::vector<std::string> NamesIn(const std::string& declaration) {
    std::vector<std::string> names;
    for (const Token& token : Tokens(declaration)) {
        if (token.text == ";")
            break;
        if (token.kind == Token::Word)
            names.push_back(token.text);
    }
    return names;
}

SystemText ReadSystemText(const std::vector<std::string>& lines, int first) {
    return SystemReader(lines, first).All();
}

} // namespace morv
