#include "resources/core/numbers.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

std::string NumberText(double value) {
    char text[32];
    const auto result =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, 5);
    return std::string(text, result.ptr);
}

double NumberIn(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n\v\f");
    if (start == std::string_view::npos)
        return 0;
    text.remove_prefix(start);
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large or too small: the C library says which.
        return std::strtod(std::string(text).c_str(), nullptr);
    }
    return result.ec == std::errc() ? value : 0;
}

std::int32_t WholeNumberIn(std::string_view text) {
    const double value = NumberIn(text);
    if (std::isnan(value))
        return 0;
    constexpr double low = std::numeric_limits<std::int32_t>::min();
    constexpr double high = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::fmin(std::fmax(value, low), high));
}
