// Finding and replacing words in a text.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// What is looked for; an empty one is found nowhere. A whole word has no letter, digit or '_' on
// either side.
struct Wanted {
    std::string what;
    bool whole_word = false;
};

// The place of the first one that begins at `from` or behind it.
std::optional<std::size_t> FindForward(std::string_view text, const Wanted& wanted,
                                       std::size_t from);

// The place of the last one that ends at `before` or ahead of it.
std::optional<std::size_t> FindBackward(std::string_view text, const Wanted& wanted,
                                        std::size_t before);

// `text` with `other` in place of all that are found in `searched`, which is as long and may have
// other letter cases. Nothing when there is none.
std::optional<std::string> ReplaceAll(std::string_view text, std::string_view searched,
                                      const Wanted& wanted, std::string_view other);
