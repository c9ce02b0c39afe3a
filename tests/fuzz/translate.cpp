// The compiler utility's translation. The input is a rules header, a NUL and a rules source.
#include "morv/translate.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>

namespace {

// Line ends of the code behind the last place where the translation says which line follows.
auto LinesBehind(const std::string& text, std::size_t mark) {
    return std::count(text.begin() + static_cast<std::ptrdiff_t>(mark), text.end(), '\n') - 1;
}

} // namespace

void Fuzz(std::string_view input) {
    const std::size_t middle = std::min(input.find('\0'), input.size());
    const std::string header(input.substr(0, middle));
    const std::string source(input.substr(std::min(middle + 1, input.size())));
    const morv::Translation translation = morv::Translate(source, "p\"R.cpp", header);

    // After an error the text is not used, and a source that brings marks of its own cannot be
    // followed by them.
    if (!translation.errors.empty() || source.find("#line") != source.npos)
        return;
    const std::string start = "#line ";
    const std::size_t mark = translation.text.rfind(start);
    fuzz::Holds(mark != translation.text.npos, "a translation says which line it begins with");
    const auto lines = std::count(source.begin(), source.end(), '\n') +
                       (source.empty() || source.back() == '\n' ? 0 : 1);
    const long first = std::stol(translation.text.substr(mark + start.size()));
    fuzz::Holds(first + LinesBehind(translation.text, mark) == lines + 1,
                "a translation keeps the number of lines");
}
