#include "shell/list_rows.h"

#include "shell/VARMORV.h"

#include <gtest/gtest.h>

namespace {

class ListRowsTest : public testing::Test {
protected:
    explicit ListRowsTest(DWORD style = 0)
        : list_(CreateWindowExA(0, "LISTBOX", "", WS_POPUP | WS_HSCROLL | LBS_HASSTRINGS | style, 0,
                                0, 200, 200, nullptr, nullptr, hInst, nullptr)),
          rows_(list_) {}
    ~ListRowsTest() override { DestroyWindow(list_); }

    HWND list_;
    ListRows rows_;
};

TEST_F(ListRowsTest, KeepsTheOrderOfItsRows) {
    EXPECT_EQ(rows_.Add("b"), 0);
    EXPECT_EQ(rows_.Add("\ta"), 1);
    EXPECT_EQ(rows_.Insert(1, "c"), 1);
    EXPECT_EQ(rows_.Count(), 3);
    EXPECT_EQ(rows_.RowText(0), "b");
    EXPECT_EQ(rows_.RowText(1), "c");
    EXPECT_EQ(rows_.RowText(2), "\ta");
    EXPECT_TRUE(rows_.Delete(0));
    EXPECT_EQ(rows_.RowText(0), "c");
    rows_.Clear();
    EXPECT_EQ(rows_.Count(), 0);
}

TEST_F(ListRowsTest, RowsThatAreNotThereHaveNoText) {
    rows_.Add("a");
    EXPECT_EQ(rows_.RowText(-1), "");
    EXPECT_EQ(rows_.RowText(1), "");
    EXPECT_FALSE(rows_.Delete(-1));
    EXPECT_FALSE(rows_.Delete(1));
    EXPECT_EQ(rows_.Count(), 1);
}

TEST_F(ListRowsTest, FindsWholeRowsAndPrefixesInAnyCase) {
    rows_.Add("Alpha");
    rows_.Add("alp");
    EXPECT_EQ(rows_.FindExact("ALPHA"), 0);
    EXPECT_EQ(rows_.FindExact("ALP"), 1);
    EXPECT_EQ(rows_.FindExact("al"), -1);
    EXPECT_EQ(rows_.FindPrefix("aL"), 0);
    EXPECT_EQ(rows_.FindPrefix("x"), -1);
}

TEST_F(ListRowsTest, Selects) {
    rows_.Add("a");
    rows_.Add("b");
    EXPECT_EQ(rows_.Selected(), -1);
    rows_.Select(1);
    EXPECT_EQ(rows_.Selected(), 1);
}

TEST_F(ListRowsTest, ScrollsToTheEndOfLongRows) {
    rows_.Add("short");
    EXPECT_EQ(SendMessageA(list_, LB_GETHORIZONTALEXTENT, 0, 0), 0);
    rows_.Add("\t" + std::string(254, 'w'));
    const LRESULT wide = SendMessageA(list_, LB_GETHORIZONTALEXTENT, 0, 0);
    EXPECT_GT(wide, 254 * 5);
    rows_.Insert(0, std::string(60, 'i'));
    EXPECT_EQ(SendMessageA(list_, LB_GETHORIZONTALEXTENT, 0, 0), wide);
}

TEST_F(ListRowsTest, AFillKeepsEveryRow) {
    {
        ListFill fill(list_, 1000, 4000);
        for (int i = 0; i < 1000; ++i)
            rows_.Add(std::to_string(i));
    }
    EXPECT_EQ(rows_.Count(), 1000);
    EXPECT_EQ(rows_.RowText(999), "999");
}

class SortedRowsTest : public ListRowsTest {
protected:
    SortedRowsTest() : ListRowsTest(LBS_SORT) {}
};

TEST_F(SortedRowsTest, PutsRowsInTheirPlace) {
    EXPECT_EQ(rows_.Add("b"), 0);
    EXPECT_EQ(rows_.Add("a"), 0);
    EXPECT_EQ(rows_.RowText(1), "b");
}

} // namespace
