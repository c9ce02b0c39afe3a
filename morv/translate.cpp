#include "translate.h"

#include "language/generated_lines.h"
#include "language/header_macros.h"
#include "language/quiet_rules.h"
#include "language/splitting.h"
#include "language/system_text.h"
#include "translate_engine.h"
#include "translate_facts.h"
#include "translate_header.h"
#include "translate_initial.h"
#include "translate_marks.h"
#include "translate_pieces.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_set>

namespace morv {

namespace {

std::string Named(const std::vector<std::string>& names) {
    std::string list = "{";
    for (const std::string& name : names)
        list += (list.size() > 1 ? ", {&" : "{&") + name + ", " + Quoted(name) + "}";
    return list + "}";
}

class Translator {
public:
    Translator(const std::string& source, std::string name, const std::string& header)
        : lines_(LinesOf(source)), name_(std::move(name)), header_(header),
          results_(header_.results.begin(), header_.results.end()),
          quiet_(source, AfterSystems(source), header_.results) {}

    Translation All() {
        CheckResults();
        Out(LineMark(1, name_));
        while (at_ < lines_.size()) {
            const std::string& line = lines_[at_++];
            Out(line);
            if (included_ && systems_.empty() && !line.starts_with("Begin "))
                shared_ += line + "\n";
            if (!included_ && line.starts_with("#include \""))
                AfterHeader();
            else if (line == "//- System Declaration")
                ReadSystems();
            else if (line == "//- Extern Functions")
                ReadExtern();
            else if (line.starts_with("Begin Inference_Engine_"))
                OneSystem(line);
        }
        result_.headers.push_back({"rules.h", SharedHeader()});
        result_.sources.insert(result_.sources.begin(), {"rules.cpp", std::move(text_)});
        result_.places = marks_.Places();
        return std::move(result_);
    }

private:
    static std::string AfterSystems(const std::string& source) {
        const std::size_t end = source.rfind("\nEndSystem");
        return end == std::string::npos ? source : source.substr(end);
    }

    void Out(const std::string& line) { text_ += line + "\n"; }

    void Complain(int line, const std::string& text) {
        result_.errors.push_back(name_ + ":" + std::to_string(line) + ": " + text);
    }

    void CheckResults() {
        static const char* const words[] = {"VERYLOW",  "LOW",         "NOTVERYLOW",
                                            "NORMAL",   "NOTVERYHIGH", "HIGH",
                                            "VERYHIGH", "FULL",        "NULL"};
        for (const std::string& result : header_.results)
            if (std::find(std::begin(words), std::end(words), result) != std::end(words))
                Complain(1, "the result " + result + " is called like a certainty");
    }

    void AfterHeader() {
        included_ = true;
        // Without results the declaration in the header is not ended.
        if (header_.results.empty())
            Out("morv_no_result;");
        else
            Out("static const morv::ResultNames morv_results(" + Named(header_.results) + ");");
        Out(LineMark(static_cast<int>(at_) + 1, name_));
    }

    // Lines like "Inference_Engine_1 steam;".
    void ReadSystems() {
        for (; at_ < lines_.size() && lines_[at_].starts_with("Inference_Engine_"); ++at_) {
            const std::vector<std::string> words = NamesIn(lines_[at_]);
            if (words.size() == 2) {
                systems_[words[0]] = words[1];
                shared_ += "extern " + lines_[at_] + "\n";
            }
            Out(lines_[at_]);
        }
    }

    void ReadExtern() {
        std::string text;
        while (at_ < lines_.size() && lines_[at_] != "//- Systems Implementation")
            text += lines_[at_++] + "\n";
        extern_ = ReadExternCode(text);
        text_ += extern_.code;
    }

    // What all sources but the first include.
    std::string SharedHeader() const {
        return "#ifndef MORV_RULES\n#define MORV_RULES\n" + header_.shared + shared_ +
               extern_.declarations + "#undef NULL\n#define NULL 0\n#endif\n";
    }

    void OneSystem(const std::string& begin) {
        text_.resize(text_.size() - begin.size() - 1);
        const int line = static_cast<int>(at_);
        TranslatedSystem system = Read(begin);
        if (!numbers_.insert(system.number).second)
            Complain(line, system.engine + " begins a second time");
        std::set<std::string> known = system.facts;
        known.insert(system.variables.begin(), system.variables.end());
        known.insert(results_.begin(), results_.end());
        known.insert({"PF", "DDEinfo", "hora", "Items", "ActivatSB"});
        const std::string defines_before = defines_;
        const TextAround around = ReadAround(system.parts);
        const std::string taken = AddMacros(around.defines, known, extern_);
        defines_ += around.defines;
        system.repeats = !quiet_.IsCalm(around.rest);
        std::string whole = WhyWhole(system.parts, known, extern_);
        if (whole.empty() && !taken.empty())
            whole = "it defines " + taken;
        if (whole.empty() && !system.text.own_type.empty())
            whole = "a variable has the type " + system.text.own_type;
        if (!header_.own_include.empty())
            whole = "its header " + header_.own_include + " may define something";
        if (macros_)
            whole = "a system before it has lines for the preprocessor";
        if (whole.empty() && extern_.code.find("engine") != std::string::npos)
            whole = "the extern code says engine";
        const std::string together = WhyTogether(system.parts, extern_);
        if (!whole.empty())
            result_.notes.push_back(system.name + " is built whole: " + whole);
        else if (!together.empty())
            result_.notes.push_back(system.name + " is built in one piece: " + together);
        macros_ = macros_ || !taken.empty() || around.rest.find('#') != std::string::npos ||
                  std::any_of(system.parts.begin(), system.parts.end(), [](const Part& part) {
                      return part.rule && part.text.find('#') != std::string::npos;
                  });

        // The certainty NULL is a number here. A system may declare more than its rules use.
        Out("#undef NULL");
        Out("#define NULL 0");
        Out("#pragma GCC diagnostic push");
        const bool shared = header_.own_include.empty();
        const std::string facts = FactsSource(system, whole.empty(), marks_);
        if (shared && !system.facts.empty() && !extern_.unclear)
            result_.sources.push_back(
                {"facts" + system.number + ".cpp", "#include \"rules.h\"\n" + Warnings() + facts});
        else
            text_ += facts;
        text_ += Warnings();
        Declare(system, whole.empty(), nullptr, text_);
        text_ += "namespace " + system.space + " { extern const morv::FactRow morv_rows[]; }\n";
        EngineText engine(system, extern_, marks_, text_);
        if (whole.empty()) {
            const bool initial_apart = HasInitialSource(system, extern_);
            if (initial_apart)
                result_.sources.push_back(
                    {"initial" + system.number + ".cpp",
                     InitialSource(system, results_, extern_, defines_before, marks_)});
            engine.PutSplit(
                pieces_.Put(system, together.empty() ? &result_.sources : nullptr, text_),
                initial_apart);
        } else
            engine.PutWhole();
        Out("#pragma GCC diagnostic pop");
        ++at_;
        text_ += marks_.At(name_ + ".end-" + system.number, static_cast<int>(at_) + 1);
    }

    // The system whose Begin line was just read.
    TranslatedSystem Read(const std::string& begin) {
        TranslatedSystem system;
        const std::vector<std::string> words = NamesIn(begin);
        system.engine = words.size() > 1 ? words[1] : "";
        system.number = system.engine.substr(std::min<std::size_t>(system.engine.size(), 17));
        system.name = systems_[system.engine];
        system.space = "morv_" + system.number;
        const std::size_t first = at_;
        while (at_ < lines_.size() && lines_[at_] != "EndSystem")
            ++at_;
        if (at_ == lines_.size())
            Complain(static_cast<int>(first), "Begin without EndSystem");
        system.text = ReadSystemText({lines_.begin() + static_cast<std::ptrdiff_t>(first),
                                      lines_.begin() + static_cast<std::ptrdiff_t>(at_)},
                                     static_cast<int>(first) + 1);
        system.facts.insert(system.text.facts.begin(), system.text.facts.end());
        for (const Variable& variable : system.text.variables)
            system.variables.insert(variable.name);
        system.changes_settings =
            ChangesSettings(system.text.rest.text) || ChangesSettings(extern_.code);
        std::vector<Complaint> complaints;
        system.parts =
            TranslateBlocks(system.text.rest.text, system.text.rest.line, system.name, complaints,
                            WordsOf(extern_.code, false).count("Poked") == 0);
        for (const Complaint& complaint : complaints)
            Complain(complaint.line, complaint.text);
        return system;
    }

    const std::vector<std::string> lines_;
    const std::string name_;
    const RulesHeader header_;
    const std::unordered_set<std::string> results_;
    const QuietRules quiet_;
    std::map<std::string, std::string> systems_;
    std::set<std::string> numbers_; // of the systems so far
    std::size_t at_ = 0;            // the next line
    bool included_ = false;
    bool macros_ = false; // a system so far may define some
    std::string text_;    // of the first source
    std::string shared_;  // of its head, for all sources
    std::string defines_; // of the text around the rules so far
    ExternCode extern_;
    Marks marks_;
    RulePieces pieces_{results_, extern_, defines_, quiet_, marks_};
    Translation result_;
};

} // namespace

Translation Translate(const std::string& source, const std::string& name,
                      const std::string& header) {
    return Translator(source, name, header).All();
}

} // namespace morv
