// What the fuzz targets share. Each target is a program of its own that defines Fuzz; the fuzzer
// calls it with made-up inputs and keeps those that end the program.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Works with one input. What must hold of every input is said with Holds.
void Fuzz(std::string_view input);

namespace fuzz {

// Ends the program, naming `property`, when it does not hold.
void Holds(bool holds, const char* property);

// An input taken apart from its front; past its end there are zeros.
class Input {
public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}

    std::size_t Byte();
    std::size_t Word(); // two bytes, the low one first
    std::string_view Take(std::size_t size);
    std::string_view Rest() const { return rest_; }
    bool AtEnd() const { return rest_.empty(); }

private:
    std::string_view rest_;
};

// Puts the input into a file of drive C:, which is this program's own. Returns its path.
std::string FileOf(std::string_view bytes);

// The content of a file of drive C:.
std::string ContentOf(const std::string& path);

} // namespace fuzz
