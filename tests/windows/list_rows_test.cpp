#include "shell/services/handles.h"
#include "shell/services/list_columns.h"

#include <gtest/gtest.h>

namespace {

class ListRowsTest : public testing::Test {
protected:
    explicit ListRowsTest(DWORD style = 0)
        : list_(CreateWindowExA(0, "LISTBOX", "", WS_POPUP | WS_HSCROLL | LBS_HASSTRINGS | style, 0,
                                0, 200, 200, nullptr, nullptr, hInst, nullptr)),
          rows_(list_) {}
    ~ListRowsTest() override { DestroyWindow(list_); }

    LRESULT Extent() const { return SendMessageA(list_, LB_GETHORIZONTALEXTENT, 0, 0); }
    int WidthOf(const std::string& text) const { return TextMeasure(list_).TabbedWidth(text); }

    HWND list_;
    ListRows rows_;
};

TEST_F(ListRowsTest, MeasuresTextsAsTheWindowSystemDoes) {
    std::string all;
    for (char c = ' '; c <= '~'; ++c)
        all += c;
    for (int font : {SYSTEM_FONT, DEFAULT_GUI_FONT, SYSTEM_FIXED_FONT}) {
        SendMessageA(list_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(font)), 0);
        const TextMeasure measure(list_);
        const HDC dc = GetDC(list_);
        SelectObject(dc, GetStockObject(font));
        for (const std::string& text :
             {std::string(), std::string("Rule 10"), all, std::string("\xe9\xfc"),
              std::string("\tWide WWW\tx"), std::string("\t\t"), all + "\t" + all}) {
            const auto size = static_cast<int>(text.size());
            EXPECT_EQ(measure.TabbedWidth(text),
                      LOWORD(GetTabbedTextExtentA(dc, text.data(), size, 0, nullptr)))
                << font << text;
        }
        SIZE extent{};
        GetTextExtentPoint32A(dc, all.data(), static_cast<int>(all.size()), &extent);
        EXPECT_EQ(measure.Width(all), extent.cx);
        ReleaseDC(list_, dc);
    }
}

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
    EXPECT_EQ(rows_.SelectedText(), std::nullopt);
    EXPECT_FALSE(rows_.DeleteSelected());
    rows_.Select(1);
    EXPECT_EQ(rows_.Selected(), 1);
    EXPECT_EQ(rows_.SelectedText(), "b");
    EXPECT_TRUE(rows_.DeleteSelected());
    EXPECT_EQ(rows_.Count(), 1);
    EXPECT_EQ(rows_.RowText(0), "a");
}

TEST_F(ListRowsTest, WithoutAWindowThereAreNone) {
    ListRows none(nullptr);
    EXPECT_EQ(none.Count(), 0);
    EXPECT_EQ(none.Selected(), -1);
    EXPECT_EQ(none.SelectedText(), std::nullopt);
    EXPECT_EQ(none.FindExact("a"), -1);
    EXPECT_EQ(none.FindPrefix("a"), -1);
    EXPECT_EQ(none.Add("a"), -1);
    EXPECT_EQ(none.Insert(0, "a"), -1);
    EXPECT_FALSE(none.Delete(0));
    const ListFill fill(nullptr);
    EXPECT_EQ(none.Add("a"), -1);
}

TEST_F(ListRowsTest, ScrollsToTheEndOfLongRows) {
    rows_.Add("short");
    EXPECT_EQ(Extent(), 0);
    rows_.Add("\t" + std::string(254, 'w'));
    const LRESULT wide = Extent();
    EXPECT_GT(wide, 254 * 5);
    rows_.Insert(0, std::string(60, 'i'));
    EXPECT_EQ(Extent(), wide);
}

TEST_F(ListRowsTest, ScrollsToTheEndOfShortRowsOfWideLetters) {
    const std::string wide(20, 'W');
    rows_.Add(wide);
    EXPECT_GE(Extent(), WidthOf(wide));
    rows_.Insert(0, "\t" + wide);
    EXPECT_GE(Extent(), WidthOf("\t" + wide));
}

TEST_F(ListRowsTest, ScrollsToTheEndOfRowsThatAVerticalScrollBarCovers) {
    RECT inside;
    GetClientRect(list_, &inside);
    std::string row = "i";
    while (WidthOf(row) < inside.right - GetSystemMetrics(SM_CXVSCROLL))
        row += 'i';
    rows_.Add(row);
    EXPECT_GE(Extent(), WidthOf(row));
}

TEST_F(ListRowsTest, AFillWidensTheListAsRowsAreAdded) {
    const std::string wide(35, 'W');
    {
        const ListFill outer(list_);
        const ListFill inner(list_);
        rows_.Add("i");
        EXPECT_EQ(Extent(), 0);
        rows_.Add(wide);
        rows_.Add("i");
    }
    EXPECT_GE(Extent(), WidthOf(wide));
}

TEST_F(ListRowsTest, AColumnFillWidensTheListAtItsEnd) {
    {
        const ColumnFill fill(list_);
        rows_.Add(std::string(60, 'W') + "\t" + std::string(60, 'W'));
        EXPECT_EQ(Extent(), 0);
    }
    EXPECT_GE(Extent(), WidthOf(std::string(120, 'W')));
    rows_.Clear();
    {
        const ColumnFill fill(list_);
        rows_.Add("a\tb");
    }
    EXPECT_LT(Extent(), 200);
}

class ColumnsTest : public ListRowsTest {
protected:
    ColumnsTest() : ListRowsTest(LBS_USETABSTOPS) {
        SetWindowPos(list_, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
    }

    // Where a row's text first has ink right of `from`; -1 when it has none.
    int InkFrom(int row, int from) const {
        ShowWindow(list_, SW_SHOWNA);
        UpdateWindow(list_);
        RECT place{}, inside{};
        SendMessageA(list_, LB_GETITEMRECT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&place));
        GetClientRect(list_, &inside);
        const HDC dc = GetDC(list_);
        const COLORREF paper = GetSysColor(COLOR_WINDOW);
        int found = -1;
        for (int x = from; x < inside.right && found < 0; ++x)
            for (int y = place.top; y < place.bottom; ++y)
                if (GetPixel(dc, x, y) != paper)
                    found = x;
        ReleaseDC(list_, dc);
        return found;
    }
};

TEST_F(ColumnsTest, ALongTextPushesOnlyWhatFollowsInItsRow) {
    const std::string name(200, 'W');
    {
        const ColumnFill fill(list_);
        rows_.Add("caret"); // the row that shows the focus
        rows_.Add("a\tlong\t1");
        rows_.Add(name + "\tlong\t1");
        rows_.Add("b\tlong\t1");
    }
    const int type = InkFrom(1, WidthOf("a") + 4);
    ASSERT_GT(type, 0);
    EXPECT_LE(type, 300 / 3 + 4);
    const int value = InkFrom(1, type + WidthOf("long") + 4);
    EXPECT_GT(value, 0);
    EXPECT_EQ(InkFrom(3, WidthOf("b") + 4), type);
    EXPECT_EQ(InkFrom(3, type + WidthOf("long") + 4), value);
    // The long row can be scrolled to its end.
    EXPECT_GE(Extent(), WidthOf(name + "long1"));
}

TEST_F(ColumnsTest, TextsThatFitAlign) {
    const std::string name(12, 'W');
    {
        const ColumnFill fill(list_);
        rows_.Add("caret");
        rows_.Add("a\tx\t1");
        rows_.Add(name + "\tx\t1");
    }
    const int type = InkFrom(1, WidthOf("a") + 4);
    EXPECT_GT(type, WidthOf(name));
    EXPECT_EQ(InkFrom(2, WidthOf(name) + 4), type);
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
