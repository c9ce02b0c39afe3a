// What the dialogs share: their table, their own state, their colours.
#include "dialog_test.h"
#include "tests/core/core_test.h"

#include <new>

namespace {

using namespace zentrik_test;

std::string steps;

template <char Step> void Note(HWND) {
    steps += Step;
}

constexpr DialogAction kActions[] = {
    {1, BN_CLICKED, Note<'a'>},
    {1, BN_DBLCLK, Note<'b'>},
    {2, BN_CLICKED, Note<'c'>},
    {2, BN_CLICKED, Note<'d'>},
};

class RunDialogTableTest : public testing::Test {
protected:
    RunDialogTableTest() { steps.clear(); }

    static INT_PTR Send(const DialogTable& table, UINT message, WPARAM wParam = 0) {
        return RunDialogTable(table, nullptr, message, wParam);
    }

    const DialogTable plain_ = {.open = Note<'o'>, .actions = kActions};
    const DialogTable full_ = {
        .open = Note<'o'>, .actions = kActions, .close_box = Note<'x'>, .destroyed = Note<'z'>};
};

TEST_F(RunDialogTableTest, RunsTheFirstActionThatMatches) {
    EXPECT_TRUE(Send(plain_, WM_COMMAND, MAKEWPARAM(1, BN_DBLCLK)));
    EXPECT_TRUE(Send(plain_, WM_COMMAND, MAKEWPARAM(1, BN_CLICKED)));
    EXPECT_TRUE(Send(plain_, WM_COMMAND, MAKEWPARAM(2, BN_CLICKED)));
    EXPECT_EQ(steps, "bac");
    EXPECT_FALSE(Send(plain_, WM_COMMAND, MAKEWPARAM(2, BN_DBLCLK)));
    EXPECT_FALSE(Send(plain_, WM_COMMAND, MAKEWPARAM(3, BN_CLICKED)));
    EXPECT_EQ(steps, "bac");
}

TEST_F(RunDialogTableTest, OpensClosesAndIsDestroyed) {
    EXPECT_TRUE(Send(full_, WM_INITDIALOG));
    EXPECT_TRUE(Send(full_, WM_CLOSE));
    EXPECT_TRUE(Send(full_, WM_DESTROY));
    EXPECT_EQ(steps, "oxz");
}

TEST_F(RunDialogTableTest, LeavesWhatHasNoEntryToTheDialogManager) {
    EXPECT_FALSE(Send(plain_, WM_CLOSE));
    EXPECT_FALSE(Send(plain_, WM_DESTROY));
    EXPECT_FALSE(Send(plain_, WM_SIZE));
    EXPECT_EQ(steps, "");
}

TEST_F(RunDialogTableTest, LetsNoExceptionOut) {
    constexpr DialogAction actions[] = {{1, BN_CLICKED, [](HWND) { throw std::bad_alloc(); }}};
    const DialogTable table = {.open = Note<'o'>, .actions = actions};
    Boxes boxes;
    EXPECT_FALSE(Send(table, WM_COMMAND, MAKEWPARAM(1, BN_CLICKED)));
    EXPECT_EQ(boxes.shown, std::vector<std::string>{"WARNING: Not enough memory"});
    EXPECT_EQ(boxes.messages[0].owner, nullptr);
}

// Counts how many there are.
struct Counted {
    static inline int alive = 0;

    std::string text;

    explicit Counted(std::string content = {}) : text(std::move(content)) { ++alive; }
    Counted(Counted&& other) : text(std::move(other.text)) { ++alive; }
    ~Counted() { --alive; }
};

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

TEST(DialogStateTest, LivesFromMakeToDrop) {
    using State = DialogState<Counted>;
    {
        const ShownDialog one("HL_Box", NoProcedure);
        const ShownDialog two("HL_Box", NoProcedure);
        State::Drop(one.Window()); // it was never made
        State::Make(one.Window(), Counted("one"));
        State::Make(two.Window(), Counted("two"));
        EXPECT_EQ(State::Of(one.Window()).text, "one");
        EXPECT_EQ(State::Of(two.Window()).text, "two");
        State::Make(two.Window(), Counted("again"));
        EXPECT_EQ(State::Of(two.Window()).text, "again");
        EXPECT_EQ(Counted::alive, 2);
        State::Drop(two.Window());
        State::Drop(two.Window());
        EXPECT_EQ(Counted::alive, 1);
        State::Drop(one.Window());
    }
    EXPECT_EQ(Counted::alive, 0);
}

TEST(DialogColoursTest, AreLightGreyWithStaticTextOnGrey200) {
    const auto brush = reinterpret_cast<INT_PTR>(GetStockObject(LTGRAY_BRUSH));
    const HDC dc = CreateCompatibleDC(nullptr);
    SetBkColor(dc, RGB(1, 2, 3));
    const auto wParam = reinterpret_cast<WPARAM>(dc);
    EXPECT_EQ(DialogColours(WM_CTLCOLORDLG, wParam), brush);
    EXPECT_EQ(GetBkColor(dc), RGB(1, 2, 3));
    for (UINT other : {WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX, WM_CTLCOLORBTN, WM_PAINT})
        EXPECT_EQ(DialogColours(other, wParam), 0) << other;
    EXPECT_EQ(GetBkColor(dc), RGB(1, 2, 3));
    EXPECT_EQ(DialogColours(WM_CTLCOLORSTATIC, wParam), brush);
    EXPECT_EQ(GetBkColor(dc), RGB(200, 200, 200));
    DeleteDC(dc);
}

TEST(LimitTextTest, LeavesRoomForTheNul) {
    const ShownDialog dialog("HL_Box", NoProcedure);
    LimitText(dialog.Window(), 313, 10);
    EXPECT_EQ(SendMessageA(dialog.Item(313), EM_GETLIMITTEXT, 0, 0), 9);
}

} // namespace
