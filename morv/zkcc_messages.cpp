#include "zkcc_messages.h"

#include "language/generated_lines.h"

#include <algorithm>
#include <cstdlib>

namespace morv {

namespace {

// The digits at `at`; empty when there are none.
std::string Digits(const std::string& text, std::size_t at) {
    return text.substr(at, text.find_first_not_of("0123456789", at) - at);
}

// A linker's complaint says nowhere that it is an error.
bool IsError(const std::string& line) {
    for (const char* mark : {" error: ", "undefined reference to ", "multiple definition of "})
        if (line.find(mark) != std::string::npos)
            return true;
    return false;
}

constexpr char kIncluded[] = "In file included from ";

} // namespace

void Messages::SetLabels(const std::vector<Place>& labels) {
    for (const Place& place : labels)
        labels_[place.label] = place.line;
}

void Messages::Complain(const std::string& message) {
    log_.push_back(Placed(message));
    errors_.push_back(log_.back());
}

void Messages::Add(const std::string& said) {
    for (const std::string& line : LinesOf(said)) {
        log_.push_back(Placed(line));
        if (IsError(line))
            errors_.push_back(log_.back());
    }
}

// "label:3:7: text" becomes "<source>:120:7: steam, rule 3, line 3: text". A header that the line
// tells of stays as it is.
std::string Messages::Placed(const std::string& line) const {
    const std::size_t start =
        line.compare(0, sizeof kIncluded - 1, kIncluded) == 0 ? sizeof kIncluded - 1 : 0;
    const std::size_t colon = line.find(':', start);
    if (colon == std::string::npos)
        return line;
    const std::string file = line.substr(start, colon - start);
    const auto label = labels_.find(file);
    if (label == labels_.end() && file != name_)
        return line;
    const std::string digits = Digits(line, colon + 1);
    if (digits.empty())
        return line.substr(0, start) + name_ + line.substr(colon);
    const int first = label == labels_.end() ? 1 : label->second;
    const int number = first + std::atoi(digits.c_str()) - 1;
    std::size_t end = colon + 1 + digits.size();
    if (end < line.size() && line[end] == ':')
        if (const std::string column = Digits(line, end + 1); !column.empty())
            end += 1 + column.size();
    if (!places_)
        places_.emplace(source_);
    const std::string place = places_->At(number);
    const bool placed = place.empty() || line.compare(end, 2 + place.size(), ": " + place) == 0;
    return line.substr(0, start) + name_ + ":" + std::to_string(number) +
           line.substr(colon + 1 + digits.size(), end - colon - 1 - digits.size()) +
           (placed ? "" : ": " + place) + line.substr(end);
}

} // namespace morv
