#include "console/scenario_run.h"

#include "morv/run_tool.h"
#include "morv/zkcc_files.h"

#include <cmath>
#include <cstdlib>
#include <sstream>

namespace console {

namespace fs = std::filesystem;

namespace {

// The line before what the program says of a step; the program repeats it.
std::string MarkOf(std::size_t place) {
    return "# zentrikc " + std::to_string(place);
}

// The commands of one step; those of an expectation tell also why things are so, for when it is
// not met.
std::vector<std::string> CommandsOf(const Step& step) {
    switch (step.kind) {
    case StepKind::Poke:
    case StepKind::Tick:
        return {step.text};
    case StepKind::Fired:
    case StepKind::NotFired:
        return {"fired " + step.name + " " + step.wanted};
    default:
        return {"show " + step.name, "why " + step.name, "why not " + step.name};
    }
}

std::string CommandsOf(const Scenario& scenario) {
    std::string commands;
    std::size_t place = 0;
    for (const Step& step : scenario.steps)
        for (const std::string& command : CommandsOf(step))
            commands += MarkOf(place++) + "\n" + command + "\n";
    return commands + MarkOf(place) + "\n";
}

// What the program said to each command; it may have ended before the last.
std::vector<std::vector<std::string>> AnswersIn(const std::string& said) {
    std::vector<std::vector<std::string>> answers;
    std::istringstream lines(said);
    for (std::string line; std::getline(lines, line);) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line == MarkOf(answers.size()))
            answers.emplace_back();
        else if (!answers.empty())
            answers.back().push_back(line);
    }
    return answers;
}

bool HasWord(const std::string& text, std::string_view word) {
    return text.ends_with(" " + std::string(word));
}

// The state of a fact or result, "11.5 HIGH", from a line "Pressure 11.5 HIGH".
std::string StateIn(const std::string& line) {
    const std::size_t blank = line.find(' ');
    return blank == line.npos ? "" : line.substr(blank + 1);
}

bool IsMet(const Step& step, const std::string& state) {
    const bool known = !HasWord(state, "NULL");
    switch (step.kind) {
    case StepKind::Holds:
        return known && (step.wanted.empty() || HasWord(state, step.wanted));
    case StepKind::Value: {
        // The program tells six digits.
        const double value = std::strtod(state.c_str(), nullptr);
        const double told = 5e-6 * std::fabs(step.value);
        return known && std::fabs(value - step.value) <= step.tolerance + told;
    }
    default: // not, unknown
        return !known;
    }
}

using Answers = std::vector<std::vector<std::string>>;

class Checker {
public:
    Checker(const Answers& answers, int code) : answers_(answers), code_(code) {}

    Outcome All(const Scenario& scenario) {
        for (const Step& step : scenario.steps) {
            const std::size_t count = CommandsOf(step).size();
            // Only what stands before another mark is said whole.
            if (place_ + count >= answers_.size())
                return Ended(step);
            Look(step);
            if (outcome_.bad)
                break;
            place_ += count;
        }
        return std::move(outcome_);
    }

private:
    Outcome Ended(const Step& step) {
        std::string how = "the program did not start or was ended";
        if (const std::string last = LastLine();
            code_ == kTookTooLong && last.starts_with("ended: "))
            how = last;
        else if (code_ != morv::kStopped)
            how.assign("the program ended with ").append(std::to_string(code_));
        outcome_.unmet.push_back({step.line, step.text, how, {}});
        return std::move(outcome_);
    }

    // The last that the program said.
    std::string LastLine() const {
        return answers_.empty() || answers_.back().empty() ? "" : answers_.back().back();
    }

    void Look(const Step& step) {
        const std::vector<std::string>& said = answers_[place_];
        const std::string first = said.empty() ? "" : said.front();
        switch (step.kind) {
        case StepKind::Poke:
            for (const std::string& line : said)
                if (const std::string refused = "Poke refused: "; line.starts_with(refused))
                    Refuse(step, line.substr(refused.size()));
            return;
        case StepKind::Tick:
            return;
        case StepKind::Fired:
        case StepKind::NotFired:
            if (first.starts_with("there is no rule"))
                Refuse(step, first);
            else if (HasWord(first, "fired") != (step.kind == StepKind::Fired))
                outcome_.unmet.push_back(
                    {step.line, step.text, first, {said.begin() + 1, said.end()}});
            return;
        default:
            if (first.starts_with("there is no fact or result"))
                Refuse(step, first);
            else if (!IsMet(step, StateIn(first)))
                outcome_.unmet.push_back({step.line, step.text, first, Why(first)});
        }
    }

    // Why things are so, or for what is not known, why nothing made it known. The first line says
    // again how it is.
    std::vector<std::string> Why(const std::string& state) const {
        std::vector<std::string> lines = answers_[place_ + (HasWord(state, "NULL") ? 2 : 1)];
        if (!lines.empty())
            lines.erase(lines.begin());
        return lines;
    }

    void Refuse(const Step& step, const std::string& why) { outcome_.bad = {step.line, why}; }

    const Answers& answers_;
    const int code_;
    std::size_t place_ = 0;
    Outcome outcome_;
};

} // namespace

Outcome RunScenario(const Scenario& scenario, const ConsoleProgram& program, unsigned limit) {
    const std::string number = std::to_string(morv::ProcessNumber());
    const fs::path reads = program.folder / (number + ".commands");
    const fs::path says = program.folder / (number + ".said");
    std::string said;
    int code = morv::kStopped;
    if (morv::WriteFile(reads, CommandsOf(scenario))) {
        const morv::Command command{
            program.file, {"/limit", std::to_string(limit)}, program.folder, says, -1, reads};
        code = morv::RunTools({command}, 1, [](std::size_t, int) { return true; }).front();
        morv::ReadFile(says, said);
    }
    std::error_code error;
    fs::remove(reads, error);
    fs::remove(says, error);
    return Checker(AnswersIn(said), code).All(scenario);
}

} // namespace console
