// The compiler utility's translation. The input is a rules header, a NUL and a rules source.
#include "morv/translate.h"
#include "tests/fuzz/fuzz.h"

#include <algorithm>
#include <set>

namespace {

std::string Whole(const morv::Translation& translation) {
    std::string whole;
    for (const auto* pieces : {&translation.headers, &translation.sources})
        for (const morv::Piece& piece : *pieces)
            whole += piece.name + '\n' + piece.text;
    return whole;
}

} // namespace

void Fuzz(std::string_view input) {
    const std::size_t middle = std::min(input.find('\0'), input.size());
    const std::string header(input.substr(0, middle));
    const std::string source(input.substr(std::min(middle + 1, input.size())));
    const morv::Translation translation = morv::Translate(source, "p\"R.cpp", header);

    fuzz::Holds(Whole(translation) == Whole(morv::Translate(source, "p\"R.cpp", header)),
                "the same source gives the same pieces");
    if (!translation.errors.empty())
        return; // the pieces are not used
    std::set<std::string> names;
    for (const auto* pieces : {&translation.headers, &translation.sources})
        for (const morv::Piece& piece : *pieces)
            fuzz::Holds(names.insert(piece.name).second, "each piece has a name of its own");
    const auto lines = std::count(source.begin(), source.end(), '\n') + 1;
    for (const morv::Place& place : translation.places)
        fuzz::Holds(place.line >= 0 && place.line <= lines + 1, "a place is a line of the source");
}
