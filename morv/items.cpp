#include "items.h"

#include "ddecom.h"
#include "names.h"

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <unordered_map>
#include <vector>

namespace morv {

namespace {

// By its own name each item, and by its name in small letters the first one.
const std::unordered_map<std::string, int>& Numbers() {
    static const std::unordered_map<std::string, int> numbers = [] {
        std::unordered_map<std::string, int> made;
        for (int i = 0; i < numItems; ++i)
            made.emplace(Items[i], i);
        for (int i = 0; i < numItems; ++i)
            made.emplace(SmallLetters(Items[i]), i);
        return made;
    }();
    return numbers;
}

// The kind of each item. Only NewData knows it, so it is asked once, with nothing, and what that
// did to the items is undone.
const std::vector<ItemKind>& Kinds() {
    static const std::vector<ItemKind> kinds = [] {
        const Informacio before = DDEinfo;
        std::vector<ItemKind> found;
        for (int i = 0; i < numItems; ++i) {
            char nothing[] = "";
            item_kind = ItemKind::Text;
            NewData(i, nothing);
            found.push_back(item_kind);
        }
        DDEinfo = before;
        return found;
    }();
    return kinds;
}

std::string Trimmed(const std::string& text) {
    const char blanks[] = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string::npos
               ? ""
               : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Passes the digits from `at` on; returns whether there were any.
bool Digits(const std::string& text, std::size_t& at) {
    const std::size_t first = at;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9')
        ++at;
    return at > first;
}

void Sign(const std::string& text, std::size_t& at) {
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        ++at;
}

// Whether a text is a decimal number; its comma becomes a point. What the library reads besides,
// like "nan" and "0x10", is none.
bool IsNumber(std::string& text) {
    std::size_t at = 0;
    Sign(text, at);
    bool digits = Digits(text, at);
    if (at < text.size() && (text[at] == '.' || text[at] == ',')) {
        text[at++] = '.';
        digits = Digits(text, at) || digits;
    }
    if (digits && at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        Sign(text, ++at);
        digits = Digits(text, at);
    }
    return digits && at == text.size();
}

bool Fits(ItemKind kind, double value) {
    switch (kind) {
    case ItemKind::Int:
        return value >= INT_MIN && value <= INT_MAX;
    case ItemKind::Long: // of the greatest long alone the double is one too many
        return value >= static_cast<double>(LONG_MIN) && value < -static_cast<double>(LONG_MIN);
    default:
        return std::isfinite(value);
    }
}

} // namespace

ItemValue LookAtValue(const std::string& name, const std::string& text) {
    auto found = Numbers().find(name);
    if (found == Numbers().end())
        found = Numbers().find(SmallLetters(name));
    if (found == Numbers().end())
        return {-1, text, "there is no item " + name};
    const ItemKind kind = Kinds()[static_cast<std::size_t>(found->second)];
    if (kind == ItemKind::Text)
        return {found->second, text, ""};
    const std::string refused = std::string(Items[found->second]) + " = " + text + ": ";
    std::string number = Trimmed(text);
    if (!IsNumber(number))
        return {found->second, text, refused + "not a number"};
    const double value = std::trunc(std::strtod(number.c_str(), nullptr));
    if (!Fits(kind, value))
        return {found->second, text, refused + "too large a number"};
    // NewData would read 1e3 as one.
    if (kind != ItemKind::Real && number.find_first_of(".eE") != std::string::npos)
        number = std::to_string(static_cast<long long>(value));
    return {found->second, number, ""};
}

void GiveValue(const ItemValue& value) {
    std::string text = value.text;
    NewData(value.item, text.data());
}

const char* ItemName(int item) {
    return Items[item];
}

} // namespace morv
