#include "console/cpp_words.h"

#include <algorithm>
#include <unordered_set>

namespace console {

bool IsCppKeyword(std::string_view word) {
    static const std::unordered_set<std::string_view> words = {
        "alignas",       "alignof",     "and",
        "and_eq",        "asm",         "auto",
        "bitand",        "bitor",       "bool",
        "break",         "case",        "catch",
        "char",          "char16_t",    "char32_t",
        "char8_t",       "class",       "co_await",
        "co_return",     "co_yield",    "compl",
        "concept",       "const",       "const_cast",
        "consteval",     "constexpr",   "constinit",
        "continue",      "decltype",    "default",
        "delete",        "do",          "double",
        "dynamic_cast",  "else",        "enum",
        "explicit",      "export",      "extern",
        "false",         "float",       "for",
        "friend",        "goto",        "if",
        "inline",        "int",         "long",
        "mutable",       "namespace",   "new",
        "noexcept",      "not",         "not_eq",
        "nullptr",       "operator",    "or",
        "or_eq",         "private",     "protected",
        "public",        "register",    "reinterpret_cast",
        "requires",      "return",      "short",
        "signed",        "sizeof",      "static",
        "static_assert", "static_cast", "struct",
        "switch",        "template",    "this",
        "thread_local",  "throw",       "true",
        "try",           "typedef",     "typeid",
        "typename",      "union",       "unsigned",
        "using",         "virtual",     "void",
        "volatile",      "wchar_t",     "while",
        "xor",           "xor_eq"};
    return words.contains(word);
}

bool IsCppName(std::string_view name) {
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    const auto letter = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
    };
    return !name.empty() && letter(name[0]) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return letter(c) || digit(c); }) &&
           !IsCppKeyword(name);
}

} // namespace console
