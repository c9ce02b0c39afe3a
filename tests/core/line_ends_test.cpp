#include "shell/core/line_ends.h"

#include <gtest/gtest.h>

namespace {

TEST(LineEnds, OfATextAreLfWhenNoneHasACr) {
    EXPECT_TRUE(EndsLinesInLf("a\nb\n"));
    EXPECT_TRUE(EndsLinesInLf("a\nb"));
    EXPECT_TRUE(EndsLinesInLf("\n"));
    EXPECT_FALSE(EndsLinesInLf(""));
    EXPECT_FALSE(EndsLinesInLf("one line"));
    EXPECT_FALSE(EndsLinesInLf("a\r\nb\r\n"));
    EXPECT_FALSE(EndsLinesInLf("a\nb\r\n"));
    EXPECT_FALSE(EndsLinesInLf("a\nb\r"));
}

TEST(LineEnds, ComeBackAsTheyWere) {
    EXPECT_EQ(WithCrLf("\na\n\nb"), "\r\na\r\n\r\nb");
    EXPECT_EQ(WithLf("\r\na\r\n\r\nb"), "\na\n\nb");
    EXPECT_EQ(WithLf("a\rb\n\r\r\nc\r"), "a\rb\n\r\nc\r");
    EXPECT_EQ(WithCrLf(""), "");
    EXPECT_EQ(WithLf(""), "");
    for (const char* text : {"\n", "a", "a\n", "\n\n\na\nb"})
        EXPECT_EQ(WithLf(WithCrLf(text)), text);
}

} // namespace
