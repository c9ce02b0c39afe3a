#include "console/form/fields.h"

#include "console/form/code_page.h"

#include <bit>
#include <charconv>
#include <cmath>

namespace console {

namespace {

constexpr char kHex[] = "0123456789abcdef";
constexpr std::string_view kNoNumber = "nan:"; // before the bits

// What no reader could tell from something else or from nothing at all.
bool IsUnseen(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < ' ' || byte == 0x7f || byte == 0x81 || byte == 0x8d || byte == 0x8f ||
           byte == 0x90 || byte == 0x9d || byte == 0xa0 || byte == 0xad;
}

bool NeedsQuotes(std::string_view field, std::string_view reserved) {
    if (field.empty() || field.front() == ' ' || field.back() == ' ' ||
        std::string_view("\"[;@").find(field.front()) != std::string_view::npos)
        return true;
    for (const char c : field)
        if (IsUnseen(c) || reserved.find(c) != std::string_view::npos)
            return true;
    return false;
}

int HexDigit(char c) {
    const std::size_t at = std::string_view(kHex).find(c);
    return c == '\0' || at == std::string_view::npos ? -1 : static_cast<int>(at);
}

// Takes the character behind a '\' off.
std::optional<char> TakeEscaped(std::string_view& text) {
    if (text.empty())
        return std::nullopt;
    const char c = text[0];
    text.remove_prefix(1);
    switch (c) {
    case 't':
        return '\t';
    case 'r':
        return '\r';
    case 'n':
        return '\n';
    case '"':
    case '\\':
        return c;
    case 'x': {
        if (text.size() < 2 || HexDigit(text[0]) < 0 || HexDigit(text[1]) < 0)
            return std::nullopt;
        const char byte = static_cast<char>(HexDigit(text[0]) * 16 + HexDigit(text[1]));
        text.remove_prefix(2);
        return byte == '\0' ? std::nullopt : std::optional(byte);
    }
    default:
        return std::nullopt;
    }
}

// The rest of a quoted field, behind its first quote.
std::optional<Field> QuotedIn(std::string_view text) {
    Field field{"", true};
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find_first_of("\"\\"), text.size());
        const std::optional<std::string> bytes = FromUtf8(text.substr(0, plain));
        if (!bytes || plain == text.size())
            return std::nullopt;
        field.text += *bytes;
        const char sign = text[plain];
        text.remove_prefix(plain + 1);
        if (sign == '"')
            return text.empty() ? std::optional(field) : std::nullopt;
        const std::optional<char> c = TakeEscaped(text);
        if (!c)
            return std::nullopt;
        field.text += *c;
    }
    return std::nullopt;
}

template <class Number> std::optional<Number> Whole(std::string_view text, Number value, int base) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value)
                                                                    : std::nullopt;
}

} // namespace

std::string QuotedField(std::string_view field) {
    std::string text = "\"";
    for (const char c : field) {
        if (c == '"' || c == '\\')
            text.append({'\\', c});
        else if (c == '\t')
            text += "\\t";
        else if (c == '\r')
            text += "\\r";
        else if (c == '\n')
            text += "\\n";
        else if (IsUnseen(c))
            text.append({'\\', 'x', kHex[static_cast<unsigned char>(c) >> 4],
                         kHex[static_cast<unsigned char>(c) & 15]});
        else
            text += ToUtf8({&c, 1});
    }
    return text += '"';
}

std::string FieldText(std::string_view field, std::string_view reserved) {
    return NeedsQuotes(field, reserved) ? QuotedField(field) : ToUtf8(field);
}

std::optional<Field> FieldIn(std::string_view text) {
    if (text.starts_with('"'))
        return QuotedIn(text.substr(1));
    std::optional<std::string> bytes = FromUtf8(text);
    if (!bytes || bytes->find('\0') != bytes->npos)
        return std::nullopt;
    return Field{std::move(*bytes), false};
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

std::string_view WithoutMark(std::string_view text) {
    constexpr std::string_view kMark = "\xef\xbb\xbf";
    return text.starts_with(kMark) ? text.substr(kMark.size()) : text;
}

std::vector<std::string_view> RowParts(std::string_view line) {
    std::vector<std::string_view> parts;
    std::size_t begin = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        // A quote opens a field only where one begins; elsewhere it is a character like others.
        if (quoted && line[i] == '\\')
            ++i;
        else if (line[i] == '"' && (quoted || Trimmed(line.substr(begin, i - begin)).empty()))
            quoted = !quoted;
        else if (line[i] == '|' && !quoted) {
            parts.push_back(Trimmed(line.substr(begin, i - begin)));
            begin = i + 1;
        }
    }
    parts.push_back(Trimmed(line.substr(std::min(begin, line.size()))));
    return parts;
}

std::string NumberField(double value) {
    char text[40];
    const auto end = std::isnan(value) ? std::to_chars(text, text + sizeof text,
                                                       std::bit_cast<std::uint64_t>(value), 16)
                                       : std::to_chars(text, text + sizeof text, value);
    const std::string digits(text, end.ptr);
    return std::isnan(value) ? std::string(kNoNumber) + digits : digits;
}

std::optional<double> NumberOf(std::string_view text) {
    if (text.starts_with(kNoNumber)) {
        const auto bits = Whole<std::uint64_t>(text.substr(kNoNumber.size()), 0, 16);
        return bits ? std::optional(std::bit_cast<double>(*bits)) : std::nullopt;
    }
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && !std::isnan(value)
               ? std::optional(value)
               : std::nullopt;
}

std::optional<std::int32_t> WholeNumberOf(std::string_view text) {
    return Whole<std::int32_t>(text, 0, 10);
}

} // namespace console
