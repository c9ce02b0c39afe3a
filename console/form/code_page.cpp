#include "console/form/code_page.h"

#include <array>
#include <cstdint>

namespace console {

namespace {

// The characters of the bytes 0x80 to 0x9f; every other byte is the character of its own number.
constexpr std::array<std::uint16_t, 32> kUpper = {
    0x20ac, 0x0081, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008d, 0x017d, 0x008f, 0x0090, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0x009d, 0x017e, 0x0178};

std::uint32_t CharacterOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xa0 ? kUpper[byte - 0x80] : byte;
}

std::optional<char> ByteOf(std::uint32_t character) {
    if (character < 0x80 || (character >= 0xa0 && character < 0x100))
        return static_cast<char>(character);
    for (std::size_t i = 0; i < kUpper.size(); ++i)
        if (kUpper[i] == character)
            return static_cast<char>(0x80 + i);
    return std::nullopt;
}

// How many bytes the next character of UTF-8 has; 0 when the bytes are none.
std::size_t CharacterSize(std::string_view text) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char lead = byte(0);
    const std::size_t size = lead < 0x80   ? 1
                             : lead < 0xc2 ? 0
                             : lead < 0xe0 ? 2
                             : lead < 0xf0 ? 3
                             : lead < 0xf5 ? 4
                                           : 0;
    if (size > text.size())
        return 0;
    for (std::size_t i = 1; i < size; ++i)
        if (byte(i) >> 6 != 2)
            return 0;
    const bool is_none = (lead == 0xe0 && byte(1) < 0xa0) || (lead == 0xed && byte(1) >= 0xa0) ||
                         (lead == 0xf0 && byte(1) < 0x90) || (lead == 0xf4 && byte(1) >= 0x90);
    return is_none ? 0 : size;
}

// Takes the next character off; nothing when the bytes are none.
std::optional<std::uint32_t> TakeCharacter(std::string_view& text) {
    const std::size_t size = CharacterSize(text);
    if (size == 0)
        return std::nullopt;
    const auto lead = static_cast<unsigned char>(text[0]);
    std::uint32_t character = size == 1 ? lead : lead & (0xffU >> (size + 1));
    for (std::size_t i = 1; i < size; ++i)
        character = character << 6 | (static_cast<unsigned char>(text[i]) & 0x3fU);
    text.remove_prefix(size);
    return character;
}

} // namespace

std::string AsUtf8(std::string text) {
    for (std::string_view rest = text; !rest.empty();) {
        const std::size_t size = CharacterSize(rest);
        if (size == 0)
            return ToUtf8(text);
        rest.remove_prefix(size);
    }
    return text;
}

std::string ToUtf8(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (const char c : text) {
        const std::uint32_t character = CharacterOf(static_cast<unsigned char>(c));
        if (character < 0x80) {
            utf8 += c;
        } else if (character < 0x800) {
            utf8 += static_cast<char>(0xc0 | character >> 6);
            utf8 += static_cast<char>(0x80 | (character & 0x3f));
        } else {
            utf8 += static_cast<char>(0xe0 | character >> 12);
            utf8 += static_cast<char>(0x80 | (character >> 6 & 0x3f));
            utf8 += static_cast<char>(0x80 | (character & 0x3f));
        }
    }
    return utf8;
}

std::optional<std::string> FromUtf8(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const std::optional<std::uint32_t> character = TakeCharacter(text);
        const std::optional<char> byte = character ? ByteOf(*character) : std::nullopt;
        if (!byte)
            return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

std::string Folded(std::string_view text) {
    std::string folded(text);
    for (char& c : folded) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte >= 'A' && byte <= 'Z') || (byte >= 0xc0 && byte <= 0xde && byte != 0xd7))
            c = static_cast<char>(byte + 0x20);
    }
    return folded;
}

} // namespace console
