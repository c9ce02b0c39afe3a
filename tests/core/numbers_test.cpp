#include "core_test.h"

#include "resources/core/numbers.h"

#include <cmath>
#include <limits>

namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();

TEST(NumberText, HasAtMostFiveDigits) {
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(-12.5), "-12.5");
    EXPECT_EQ(NumberText(36.60), "36.6");
    EXPECT_EQ(NumberText(1.0 / 3), "0.33333");
    EXPECT_EQ(NumberText(2.0 / 3), "0.66667");
    EXPECT_EQ(NumberText(12345.6), "12346");
}

TEST(NumberText, HasAnExponentWhenTheDigitsDoNotReach) {
    EXPECT_EQ(NumberText(99999), "99999");
    EXPECT_EQ(NumberText(100000), "1e+05");
    EXPECT_EQ(NumberText(123456), "1.2346e+05");
    EXPECT_EQ(NumberText(0.0001), "0.0001");
    EXPECT_EQ(NumberText(0.00001), "1e-05");
    EXPECT_EQ(NumberText(-1e300), "-1e+300");
}

TEST(NumberIn, ReadsTheNumberATextStartsWith) {
    EXPECT_EQ(NumberIn("5."), 5);
    EXPECT_EQ(NumberIn(".5"), 0.5);
    EXPECT_EQ(NumberIn("+5"), 5);
    EXPECT_EQ(NumberIn("-5"), -5);
    EXPECT_EQ(NumberIn("  \t 7 8"), 7);
    EXPECT_EQ(NumberIn("1e3"), 1000);
    EXPECT_EQ(NumberIn("1,5"), 1); // whatever the locale has for a point
    EXPECT_EQ(NumberIn("12warm"), 12);
}

TEST(NumberIn, TakesOtherTextsAsZero) {
    for (const char* text : {"", " ", "warm", "+", "-", ".", "+-5", "-+5", "++5", "e5", "- 5"})
        EXPECT_EQ(NumberIn(text), 0) << text;
}

TEST(NumberIn, GoesToTheEndsOfItsRange) {
    EXPECT_EQ(NumberIn("1e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumberIn("-1e400"), -std::numeric_limits<double>::infinity());
    EXPECT_EQ(NumberIn("1e-400"), 0);
    EXPECT_EQ(NumberIn("1e308"), 1e308);
    EXPECT_TRUE(std::isnan(NumberIn("nan")));
}

TEST(WholeNumberIn, DropsTheFraction) {
    EXPECT_EQ(WholeNumberIn("60.9"), 60);
    EXPECT_EQ(WholeNumberIn("-60.9"), -60);
    EXPECT_EQ(WholeNumberIn("-0.5"), 0);
    EXPECT_EQ(WholeNumberIn("2147483647"), kLargest);
    EXPECT_EQ(WholeNumberIn("-2147483648"), kSmallest);
}

TEST(WholeNumberIn, StaysInItsRange) {
    EXPECT_EQ(WholeNumberIn("3e9"), kLargest);
    EXPECT_EQ(WholeNumberIn("-3e9"), kSmallest);
    EXPECT_EQ(WholeNumberIn("1e400"), kLargest);
    EXPECT_EQ(WholeNumberIn("nan"), 0);
    EXPECT_EQ(WholeNumberIn("none"), 0);
}

} // namespace
