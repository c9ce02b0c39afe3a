#include "console/local_names.h"

#include "console/cpp_words.h"

#include <algorithm>
#include <array>

namespace console {

namespace {

template <std::size_t N>
bool IsOneOf(std::string_view text, const std::array<std::string_view, N>& these) {
    return std::find(these.begin(), these.end(), text) != these.end();
}

// Words after which a name is used, not declared.
bool IsBeforeUse(std::string_view word) {
    constexpr std::array<std::string_view, 17> kWords = {
        "return", "else", "case", "goto", "throw", "new",   "delete",  "do",       "sizeof",
        "and",    "or",   "not",  "xor",  "true",  "false", "nullptr", "co_return"};
    return IsOneOf(word, kWords) || IsBlockWord(word);
}

bool IsTypeKeyword(std::string_view word) {
    constexpr std::array<std::string_view, 13> kWords = {
        "bool", "char", "double", "float", "int",      "long",   "short",
        "void", "auto", "signed", "const", "unsigned", "wchar_t"};
    return IsOneOf(word, kWords);
}

bool BeginsType(std::string_view word) {
    constexpr std::array<std::string_view, 4> kWords = {"struct", "class", "union", "enum"};
    return IsOneOf(word, kWords);
}

} // namespace

bool LocalNames::Declares(std::ptrdiff_t i) {
    const Sign& sign = signs_.At(i);
    if (!sign.word) {
        if (sign.text.size() == 1)
            Bracket(i);
        return false;
    }
    if (i < arguments_)
        return true;
    if (!signs_.IsName(i) || signs_.IsMember(i))
        return false;
    if (IsBlockWord(sign.text)) {
        list_ = kNowhere;
        return false;
    }
    if (BeginsType(sign.text)) {
        begins_type_ = true;
        begins_enum_ = begins_enum_ || sign.text == "enum";
    }
    return IsDeclarator(i) || IsEnumerator(i) || depth_ == binding_ || IsLabel(i) ||
           IsCaptured(i) || IsPointerToFunction(i);
}

void LocalNames::Bracket(std::ptrdiff_t i) {
    const char sign = signs_.TextAt(i)[0];
    switch (sign) {
    case '(':
        ++depth_;
        break;
    case '{':
        ++depth_;
        if (begins_type_)
            types_.push_back(depth_);
        if (begins_enum_)
            enumerators_ = depth_;
        begins_type_ = begins_enum_ = false;
        break;
    case '[': {
        ++depth_;
        const std::ptrdiff_t before = WithoutStars(i - 1);
        if (signs_.TextAt(before) == "auto")
            binding_ = depth_;
        else if (const std::string& near = signs_.TextAt(i - 1);
                 !signs_.At(i - 1).word && near != ")" && near != "]")
            capture_ = depth_;
        break;
    }
    case ')':
    case '}':
    case ']':
        Close(sign, i);
        break;
    case ';':
        begins_type_ = begins_enum_ = false;
        if (depth_ <= list_)
            list_ = kNowhere;
        break;
    case '<':
        if (i > arguments_)
            Arguments(i);
        break;
    default:
        break;
    }
}

void LocalNames::Close(char sign, std::ptrdiff_t i) {
    for (int* open : {&list_, &binding_, &capture_, &enumerators_})
        if (*open == depth_)
            *open = kNowhere;
    if (sign == '}' && !types_.empty() && types_.back() == depth_) {
        types_.pop_back();
        type_end_ = i;
    }
    depth_ = std::max(depth_ - 1, 0);
}

// At a '<' that begins the arguments of a type, and is no comparison, looks for their end.
void LocalNames::Arguments(std::ptrdiff_t i) {
    constexpr std::ptrdiff_t kMost = 64;
    const std::string& first = signs_.TextAt(i + 1);
    if (!signs_.IsName(i - 1) ||
        !(signs_.IsQualified(i - 1) || IsCppKeyword(signs_.TextAt(i - 1)) || first == "std" ||
          IsTypeKeyword(first)))
        return;
    int open = 1;
    for (std::ptrdiff_t at = i + 1; at < i + kMost; ++at) {
        const Sign& sign = signs_.At(at);
        const std::string& before = signs_.TextAt(at - 1);
        if (sign.text == "<")
            ++open;
        else if (sign.text == ">" && before != "-")
            --open;
        else if (!sign.word && (sign.text.empty() || std::string_view(":,*&()").find(sign.text) ==
                                                         std::string_view::npos))
            return;
        else if (sign.text == "&" && before == "&")
            return;
        if (open == 0) {
            arguments_ = at;
            return;
        }
    }
}

// The sign before a run of '*', '&' and const that ends at `i`.
std::ptrdiff_t LocalNames::WithoutStars(std::ptrdiff_t i) const {
    while (signs_.TextAt(i) == "*" || signs_.TextAt(i) == "&" ||
           (signs_.TextAt(i) == "const" && signs_.TextAt(i - 1) == "*"))
        --i;
    return i;
}

// A name behind a type, the further ones of its list, and one behind the braces of a type.
bool LocalNames::IsDeclarator(std::ptrdiff_t i) {
    if (IsBehindType(i) || i - 1 == type_end_) {
        list_ = depth_;
        return true;
    }
    return depth_ == list_ && signs_.TextAt(WithoutStars(i - 1)) == ",";
}

bool LocalNames::IsBehindType(std::ptrdiff_t i) const {
    const std::ptrdiff_t type = WithoutStars(i - 1);
    if (type == arguments_ && type >= 0)
        return true;
    const std::string& word = signs_.TextAt(type);
    if (!signs_.IsName(type) || IsBeforeUse(word))
        return false;
    // "a * b" may be a product.
    return type == i - 1 || IsTypeKeyword(word) || BeginsStatement(type);
}

// Whether a statement begins with the type at `i`, or what stands for one in brackets.
bool LocalNames::BeginsStatement(std::ptrdiff_t i) const {
    while (signs_.IsQualified(i) && signs_.At(i - 3).word)
        i -= 3;
    if (signs_.TextAt(i - 1) == "const" || signs_.TextAt(i - 1) == "static")
        return true;
    const std::string& before = signs_.TextAt(i - 1);
    if (before == "(") {
        const std::string& opener = signs_.TextAt(i - 2);
        return opener == "for" || opener == "catch" || opener == "]";
    }
    return before.empty() || before == ";" || before == "{" || before == "}" ||
           IsBlockWord(before) || signs_.TextAt(i - 2) == "Rule";
}

bool LocalNames::IsEnumerator(std::ptrdiff_t i) const {
    return depth_ == enumerators_ && (signs_.TextAt(i - 1) == "{" || signs_.TextAt(i - 1) == ",");
}

bool LocalNames::IsLabel(std::ptrdiff_t i) const {
    return signs_.TextAt(i - 1) == "goto" ||
           (signs_.TextAt(i + 1) == ":" && signs_.TextAt(i + 2) != ":" && BeginsStatement(i));
}

bool LocalNames::IsCaptured(std::ptrdiff_t i) const {
    return depth_ == capture_ && signs_.TextAt(i + 1) == "=" && signs_.TextAt(i + 2) != "=";
}

bool LocalNames::IsPointerToFunction(std::ptrdiff_t i) const {
    return signs_.TextAt(i - 1) == "*" && signs_.TextAt(i - 2) == "(" && signs_.At(i - 3).word &&
           signs_.TextAt(i + 1) == ")" && signs_.TextAt(i + 2) == "(";
}

} // namespace console
