#include "translate.h"

#include "language/rule_blocks.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace morv {

namespace {

bool StartsWith(const std::string& text, const std::string& start) {
    return text.compare(0, start.size(), start) == 0;
}

std::string WithoutCr(std::string line) {
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(WithoutCr(line));
    return lines;
}

// The words of a declaration up to its end.
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

// The results that the rules header declares: the names after its last line "DATAFACTRESULT".
std::vector<std::string> Results(const std::string& header) {
    const std::vector<std::string> lines = LinesOf(header);
    const auto heading = std::find(lines.rbegin(), lines.rend(), "DATAFACTRESULT");
    std::string declaration;
    if (heading != lines.rend())
        for (auto line = heading.base(); line != lines.end() && !StartsWith(*line, "#"); ++line)
            declaration += *line + "\n";
    return NamesIn(declaration);
}

std::string Named(const std::vector<std::string>& names) {
    std::string list = "{";
    for (const std::string& name : names)
        list += (list.size() > 1 ? ", {&" : "{&") + name + ", " + Quoted(name) + "}";
    return list + "}";
}

class Translator {
public:
    Translator(const std::string& source, std::string name, const std::string& header)
        : lines_(LinesOf(source)), name_(std::move(name)), results_(Results(header)) {}

    Translation All() {
        CheckResults();
        Out(LineMark(1));
        while (at_ < lines_.size()) {
            const std::string& line = lines_[at_++];
            Out(line);
            if (!included_ && StartsWith(line, "#include \""))
                AfterHeader();
            else if (line == "//- System Declaration")
                ReadSystems();
            else if (StartsWith(line, "Begin Inference_Engine_"))
                OneSystem(line);
        }
        result_.sources.push_back({"rules.cpp", std::move(text_)});
        return std::move(result_);
    }

private:
    void Out(const std::string& line) { text_ += line + "\n"; }

    // Says that the next line is number `line` of the source.
    std::string LineMark(std::size_t line) const {
        return "#line " + std::to_string(line) + " " + Quoted(name_);
    }

    void Complain(std::size_t line, const std::string& text) {
        result_.errors.push_back(name_ + ":" + std::to_string(line) + ": " + text);
    }

    void CheckResults() {
        static const char* const words[] = {"VERYLOW",  "LOW",         "NOTVERYLOW",
                                            "NORMAL",   "NOTVERYHIGH", "HIGH",
                                            "VERYHIGH", "FULL",        "NULL"};
        for (const std::string& result : results_)
            if (std::find(std::begin(words), std::end(words), result) != std::end(words))
                Complain(1, "the result " + result + " is called like a certainty");
    }

    void AfterHeader() {
        included_ = true;
        // Without results the declaration in the header is not ended.
        if (results_.empty())
            Out("morv_no_result;");
        else
            Out("static const morv::ResultNames morv_results(" + Named(results_) + ");");
        Out(LineMark(at_ + 1));
    }

    // Lines like "Inference_Engine_1 steam;".
    void ReadSystems() {
        for (; at_ < lines_.size() && StartsWith(lines_[at_], "Inference_Engine_"); ++at_) {
            const std::vector<std::string> words = NamesIn(lines_[at_]);
            if (words.size() == 2)
                systems_[words[0]] = words[1];
            Out(lines_[at_]);
        }
    }

    void OneSystem(const std::string& begin) {
        text_.resize(text_.size() - begin.size() - 1);
        const std::vector<std::string> words = NamesIn(begin);
        const std::string engine = words.size() > 1 ? words[1] : "";
        const std::size_t first = at_; // the line after Begin, from 0
        std::string text;
        while (at_ < lines_.size() && lines_[at_] != "EndSystem")
            text += WithFacts(lines_[at_++]) + "\n";
        if (at_ == lines_.size())
            Complain(first, "Begin without EndSystem");
        std::vector<Complaint> complaints;
        const std::string code =
            TranslateBlocks(text, static_cast<int>(first) + 1, systems_[engine], complaints);
        for (const Complaint& complaint : complaints)
            Complain(static_cast<std::size_t>(complaint.line), complaint.text);
        // The certainty NULL is a number here. A system may declare more than its rules use.
        Out("#undef NULL");
        Out("#define NULL 0");
        Out("#pragma GCC diagnostic push");
        Out("#pragma GCC diagnostic ignored \"-Wunused-variable\"");
        Out("#pragma GCC diagnostic ignored \"-Wunused-but-set-variable\"");
        Out(LineMark(first));
        Out("int " + engine + "::engine() { morv::Run morv_run;");
        text_ += code;
        Out("return morv_run.Conclusions(); }");
        Out("#pragma GCC diagnostic pop");
        ++at_;
        Out(LineMark(at_ + 1));
    }

    // The line that declares the facts, with a call that makes them known behind it.
    static std::string WithFacts(const std::string& line) {
        const std::string start = "\tstatic DATAFACT *PF";
        if (!StartsWith(line, start))
            return line;
        const std::vector<std::string> facts = NamesIn(line.substr(start.size()));
        return line + " PF = morv::NoFact(); Facts(" + Named(facts) + ");";
    }

    const std::vector<std::string> lines_;
    const std::string name_;
    const std::vector<std::string> results_;
    std::map<std::string, std::string> systems_;
    std::size_t at_ = 0; // the next line
    bool included_ = false;
    std::string text_;
    Translation result_;
};

} // namespace

Translation Translate(const std::string& source, const std::string& name,
                      const std::string& header) {
    return Translator(source, name, header).All();
}

} // namespace morv
