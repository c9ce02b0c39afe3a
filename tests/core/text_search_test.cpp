#include "shell/core/text_search.h"

#include <gtest/gtest.h>

namespace {

using Place = std::optional<std::size_t>;

TEST(TextSearch, FindsForward) {
    EXPECT_EQ(FindForward("aab aab", {"ab"}, 0), Place(1));
    EXPECT_EQ(FindForward("aab aab", {"ab"}, 1), Place(1));
    EXPECT_EQ(FindForward("aab aab", {"ab"}, 2), Place(5));
    EXPECT_EQ(FindForward("aab aab", {"ab"}, 6), Place());
    EXPECT_EQ(FindForward("aab", {"ab"}, 100), Place());
    EXPECT_EQ(FindForward("aab", {""}, 0), Place());
    EXPECT_EQ(FindForward("", {"a"}, 0), Place());
}

TEST(TextSearch, FindsBackward) {
    EXPECT_EQ(FindBackward("aab aab", {"ab"}, 7), Place(5));
    EXPECT_EQ(FindBackward("aab aab", {"ab"}, 6), Place(1));
    EXPECT_EQ(FindBackward("aab aab", {"ab"}, 3), Place(1));
    EXPECT_EQ(FindBackward("aab aab", {"ab"}, 2), Place());
    EXPECT_EQ(FindBackward("aab", {"ab"}, 100), Place(1));
    EXPECT_EQ(FindBackward("aab", {""}, 3), Place());
    EXPECT_EQ(FindBackward("a", {"ab"}, 1), Place());
}

TEST(TextSearch, FindsWholeWords) {
    const std::string text = "cat cats tomcat cat_1 (cat) \xe9"
                             "cat cat";
    EXPECT_EQ(FindForward(text, {"cat", true}, 0), Place(0));
    EXPECT_EQ(FindForward(text, {"cat", true}, 1), Place(text.find("(cat") + 1));
    EXPECT_EQ(FindForward(text, {"cat", true}, text.find("(cat") + 2), Place(text.size() - 3));
    EXPECT_EQ(FindBackward(text, {"cat", true}, text.size() - 1), Place(text.find("(cat") + 1));
    EXPECT_EQ(FindBackward(text, {"cat", true}, text.find("(cat")), Place(0));
    EXPECT_EQ(FindBackward("cats", {"cat", true}, 4), Place());
}

TEST(TextSearch, ReplacesAll) {
    EXPECT_EQ(ReplaceAll("Ab ab aB", "ab ab ab", {"ab"}, "abab"), "abab abab abab");
    EXPECT_EQ(ReplaceAll("aaa", "aaa", {"aa"}, "b"), "ba");
    EXPECT_EQ(ReplaceAll("x ab y", "x ab y", {"ab"}, ""), "x  y");
    EXPECT_EQ(ReplaceAll("cats cat", "cats cat", {"cat", true}, "dog"), "cats dog");
    EXPECT_EQ(ReplaceAll("x", "x", {"ab"}, "c"), std::nullopt);
    EXPECT_EQ(ReplaceAll("x", "x", {""}, "c"), std::nullopt);
}

TEST(TextSearch, TakesTimeInProportionToTheText) {
    const std::string text(2'000'000, 'a');
    const auto replaced = ReplaceAll(text, text, {"a"}, "bb");
    ASSERT_TRUE(replaced);
    EXPECT_EQ(replaced->size(), 2 * text.size());
    EXPECT_EQ(FindForward(text, {"a", true}, 0), Place());
    EXPECT_EQ(FindBackward(text, {"a", true}, text.size()), Place());
}

} // namespace
