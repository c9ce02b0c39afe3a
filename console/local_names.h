// The names that rules declare for themselves: variables, enumerators, labels.
#pragma once

#include "console/signs.h"

namespace console {

// Looks at the signs of a text one after the other. It errs on the side of a declaration.
class LocalNames {
public:
    explicit LocalNames(const Signs& signs) : signs_(signs) {}

    // Takes the next sign, number `i`. Returns whether it is a name that is declared here, or that
    // of a type between < and >.
    bool Declares(std::ptrdiff_t i);

private:
    void Bracket(std::ptrdiff_t i);
    void Close(char sign, std::ptrdiff_t i);
    void Arguments(std::ptrdiff_t i);
    bool IsDeclarator(std::ptrdiff_t i);
    bool IsBehindType(std::ptrdiff_t i) const;
    bool BeginsStatement(std::ptrdiff_t i) const;
    bool IsEnumerator(std::ptrdiff_t i) const;
    bool IsLabel(std::ptrdiff_t i) const;
    bool IsCaptured(std::ptrdiff_t i) const;
    bool IsPointerToFunction(std::ptrdiff_t i) const;
    std::ptrdiff_t WithoutStars(std::ptrdiff_t i) const;

    static constexpr int kNowhere = -1;

    const Signs& signs_;
    int depth_ = 0; // how many brackets are open
    // At which depth these stand:
    int list_ = kNowhere;    // the names of a declaration, "int a, b;"
    int binding_ = kNowhere; // "auto [a, b]"
    int capture_ = kNowhere; // "[a = 1]" of a function within
    int enumerators_ = kNowhere;
    std::vector<int> types_;        // what is in the braces of types
    bool begins_type_ = false;      // behind "struct" and the like,
    bool begins_enum_ = false;      // and behind "enum"
    std::ptrdiff_t type_end_ = -1;  // the last '}' of a type
    std::ptrdiff_t arguments_ = -1; // the last '>' that ends the arguments of a type
};

} // namespace console
