// What the compilers say, as a user of the rules reads it.
#pragma once

#include "language/rule_places.h"
#include "translate.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace morv {

class Messages {
public:
    // `source` is the content of the rules source `name`, which outlives this.
    Messages(const std::string& source, const std::string& name) : source_(source), name_(name) {}

    // The labels that the compilers may tell of.
    void SetLabels(const std::vector<Place>& labels);

    // Adds a message "file:line: what is wrong", with the place in the rules behind the line.
    void Complain(const std::string& message);

    // Adds what a compiler said, line by line; its errors are messages too.
    void Add(const std::string& said);

    // A line for the log alone.
    void Note(const std::string& line) { log_.push_back(line); }

    const std::vector<std::string>& Errors() const { return errors_; }
    const std::vector<std::string>& Log() const { return log_; }

private:
    std::string Placed(const std::string& line) const;

    const std::string& source_;
    mutable std::optional<RulePlaces> places_; // read when there is something to be placed
    const std::string name_;
    std::map<std::string, int> labels_; // label and its first line in the source
    std::vector<std::string> errors_, log_;
};

} // namespace morv
