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

std::string Line(const std::string& text, int line) {
    const LinePlace place = FindLine(text, line);
    return text.substr(place.begin, place.size);
}

TEST(LineEnds, ALineIsCountedByEveryLf) {
    const std::string text = "one\ntwo\r\n\r\nthr\ree\r\r\nfour\r";
    EXPECT_EQ(Line(text, 0), "one");
    EXPECT_EQ(Line(text, 1), "two");
    EXPECT_EQ(FindLine(text, 2).begin, 9u);
    EXPECT_EQ(Line(text, 2), "");
    EXPECT_EQ(Line(text, 3), "thr\ree\r");
    EXPECT_EQ(Line(text, 4), "four\r");
}

TEST(LineEnds, BehindTheLastLineThereIsNone) {
    EXPECT_EQ(Line("a\nb", 7), "b");
    EXPECT_EQ(Line("a\nb", -1), "a");
    EXPECT_EQ(FindLine("a\r\n", 7).begin, 3u);
    EXPECT_EQ(FindLine("a\r\n", 7).size, 0u);
    EXPECT_EQ(FindLine("", 0).size, 0u);
    EXPECT_EQ(Line("\r\n", 0), "");
}

} // namespace
