// The names of facts and results, as people type them and as lines show them.
#ifndef MORV_NAMES
#define MORV_NAMES

#include <string>

namespace morv {

// Whether a letter may stand in a name: those beyond ASCII may.
inline bool IsOfName(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           (static_cast<unsigned char>(c) & 0x80U) != 0;
}

std::string SmallLetters(std::string text); // those of ASCII, as names have them

// The name of a fact or result that is meant by `typed`, in whatever case; `typed` where none is.
std::string MeantName(const std::string& typed);

// The first name of a fact or result in a line; empty without one.
std::string NameIn(const std::string& line);

} // namespace morv

#endif
