// The window of a program: the entry line, double-clicks, the clock, and DDE.
#include "ddecom.h"
#include "morv/dde_server.h"
#include "morv/program_window.h"
#include "morv/session.h"
#include "morv/shell.h"
#include "panel_test.h"
#include "tests/dde_client.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

using namespace panel_test;

constexpr UINT kNever = 1000000; // a period of the clock

class Window : public Panel {
protected:
    void SetUp() override {
        Panel::SetUp();
        TheEngine().shown = ShowLine;
        TheEngine().states = {{"HOT", "1 FULL"}, {"Pressure", "11.5 HIGH"}};
    }

    void TearDown() override {
        if (IsWindow(window_))
            DestroyWindow(window_);
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
            if (message.message != WM_QUIT)
                DispatchMessageA(&message);
        TheEngine().shown = nullptr;
    }

    void Open(UINT period = kNever, long ticks = 0) {
        ASSERT_TRUE(
            OpenProgramWindow(GetModuleHandleA(nullptr), {"Apiplant", SW_SHOWNOACTIVATE, period,
                                                          ticks, [this] { ++flushes_; }}));
        window_ = FindWindowA("MorvProgram", "Apiplant");
        list_ = FindWindowExA(window_, nullptr, "LISTBOX", nullptr);
        entry_ = FindWindowExA(window_, nullptr, "EDIT", nullptr);
        ASSERT_NE(list_, nullptr);
        ASSERT_NE(entry_, nullptr);
        Told();
    }

    // Handles messages until the condition holds.
    template <class Condition> static bool Await(Condition condition) {
        for (const ULONGLONG end = GetTickCount64() + 20000; GetTickCount64() < end;) {
            if (condition())
                return true;
            MSG message;
            if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageA(&message);
            else
                MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
        }
        return condition();
    }

    void Press(WPARAM key) const { SendMessageA(entry_, WM_KEYDOWN, key, 0); }

    void Type(const std::string& line) const {
        SetWindowTextA(entry_, line.c_str());
        Press(VK_RETURN);
    }

    static std::string Text(HWND window) {
        char text[200] = {};
        GetWindowTextA(window, text, sizeof text);
        return text;
    }

    Lines Rows() const {
        Lines rows;
        for (LRESULT i = 0; i < SendMessageA(list_, LB_GETCOUNT, 0, 0); ++i) {
            char row[300] = {};
            SendMessageA(list_, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(row));
            rows.emplace_back(row);
        }
        return rows;
    }

    void ExpectRows(const Lines& rows) const {
        EXPECT_TRUE(Await([&] { return Rows() == rows; })) << testing::PrintToString(Rows());
    }

    HWND window_ = nullptr, list_ = nullptr, entry_ = nullptr;
    int flushes_ = 0;
};

TEST_F(Window, ALineThatIsTypedIsDoneAndItsAnswerIsShown) {
    Open();
    EXPECT_EQ(TheEngine().ticks, 1);
    Type("why HOT");
    ExpectRows({": why HOT", "why HOT"});
    EXPECT_EQ(Text(entry_), "");
    Type("poke Rate 3,5");
    EXPECT_EQ(DDEinfo.Rate, 3.5);
    Type("tick 3");
    EXPECT_EQ(TheEngine().ticks, 4);
    Type("");
    ExpectRows({": why HOT", "why HOT", ": poke Rate 3,5", "Poke: Rate = 3.5", ": tick 3"});
}

TEST_F(Window, TypedLinesAreBroughtBack) {
    Open();
    Type("first");
    Type("second");
    Type("second");
    Press(VK_UP);
    EXPECT_EQ(Text(entry_), "second");
    Press(VK_UP);
    Press(VK_UP);
    EXPECT_EQ(Text(entry_), "first");
    Press(VK_DOWN);
    EXPECT_EQ(Text(entry_), "second");
    Press(VK_DOWN);
    Press(VK_DOWN);
    EXPECT_EQ(Text(entry_), "");
}

TEST_F(Window, ADoubleClickAsksWhyForTheNameInALine) {
    Open();
    morv::Output("nothing of note");
    morv::Output("assign Pressure = 11.5");
    ASSERT_TRUE(Await([&] { return Rows().size() == 2; }));
    for (const WPARAM row : {0, 1}) {
        RECT place{};
        SendMessageA(list_, LB_GETITEMRECT, row, reinterpret_cast<LPARAM>(&place));
        for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
            SendMessageA(list_, message, 0, MAKELPARAM(20, (place.top + place.bottom) / 2));
    }
    ExpectRows({"nothing of note", "assign Pressure = 11.5", ": why Pressure", "why Pressure"});
}

TEST_F(Window, HoldStopsTheClockAndGoLetsItGoOn) {
    Open(10);
    ASSERT_TRUE(Await([] { return TheEngine().ticks > 3; }));
    Type("hold");
    EXPECT_EQ(Text(window_), "Apiplant - held");
    const int held = TheEngine().ticks;
    const int flushes = flushes_;
    EXPECT_TRUE(Await([&] { return flushes_ > flushes; })) << "while it is held, too";
    EXPECT_EQ(TheEngine().ticks, held);
    Type("tick 2");
    EXPECT_EQ(TheEngine().ticks, held + 2);
    Type("go");
    EXPECT_EQ(Text(window_), "Apiplant");
    EXPECT_TRUE(Await([&] { return TheEngine().ticks > held + 4; }));
}

TEST_F(Window, ManyTicksLeaveTimeForTheUserAndCanBeStopped) {
    Open();
    // The load, not a wait: ticks that take their time, so that all of them cannot be done at once.
    TheEngine().rules = [] { Sleep(1); };
    Type("tick 100000");
    EXPECT_LT(TheEngine().ticks, 2000);
    ASSERT_TRUE(Await([] { return TheEngine().ticks > 100; }));
    Type("hold");
    const int held = TheEngine().ticks;
    Await([&] { return Rows().size() > 1; });
    EXPECT_EQ(TheEngine().ticks, held);
}

TEST_F(Window, ABoxThatRulesOpenStartsNoSecondTick) {
    Open(10);
    int depth = 0, deepest = 0;
    TheEngine().rules = [&] {
        deepest = std::max(deepest, ++depth);
        TheEngine().rules = [&] { deepest = std::max(deepest, depth + 1); };
        // What a message box does until it is closed, and in it the clock and the user go on.
        const int flushes = flushes_;
        EXPECT_TRUE(Await([&] { return flushes_ > flushes; }));
        Type("tick");
        Type("poke Rate 5");
        EXPECT_NE(DDEinfo.Rate, 5);
        --depth;
    };
    DDEinfo.Rate = 0;
    ASSERT_TRUE(Await([&] { return deepest == 1 && !morv::InTick() && depth == 0; }));
    EXPECT_TRUE(Await([&] { return DDEinfo.Rate == 5; }));
    EXPECT_EQ(deepest, 1);
    const auto refused = [&] {
        const Lines rows = Rows();
        return std::find(rows.begin(), rows.end(), "a tick is running") != rows.end();
    };
    EXPECT_TRUE(Await(refused)) << testing::PrintToString(Rows());
}

TEST_F(Window, ItMayBeClosedWhileABoxIsOpen) {
    Open(10);
    TheEngine().rules = [&] {
        if (window_ == nullptr)
            return;
        DestroyWindow(window_);
        window_ = nullptr;
        put_box("after the end");
    };
    EXPECT_TRUE(Await([&] { return window_ == nullptr; }));
    const int ticks = TheEngine().ticks;
    Await([] { return true; });
    EXPECT_EQ(TheEngine().ticks, ticks);
}

TEST_F(Window, ItClosesByItselfAfterItsTicks) {
    Open(10, 5);
    EXPECT_TRUE(Await([&] { return !IsWindow(window_); }));
    EXPECT_EQ(TheEngine().ticks, 5);
}

TEST_F(Window, TheListKeepsTheNewestLines) {
    Open();
    for (int i = 0; i < 5000; ++i)
        morv::Output(std::to_string(i));
    EXPECT_TRUE(Await([&] { return SendMessageA(list_, LB_GETCOUNT, 0, 0) == 2000; }));
    EXPECT_EQ(Rows().back(), "4999");
    EXPECT_EQ(Rows().front(), "3000");
}

class DdeOut : public Window {
protected:
    void SetUp() override {
        Window::SetUp();
        ASSERT_TRUE(StartDdeServer());
        Open();
    }
    void TearDown() override {
        Window::TearDown();
        StopDdeServer();
    }

    // A client at work, in a thread of its own as another program would be.
    template <class Work> void AsClient(Work work) {
        std::atomic<bool> done = false;
        std::thread thread([&] {
            {
                zentrik_test::DdeClient client;
                EXPECT_TRUE(client.Connect("apiplant", "Plant"));
                work(client);
            }
            done = true;
        });
        EXPECT_TRUE(Await([&] { return done.load(); }));
        thread.join();
    }
};

TEST_F(DdeOut, ARequestGivesTheStateOfAFactOrResult) {
    const auto expect = [this](const char* name, const std::string& state, UINT format = CF_TEXT) {
        AsClient([&](zentrik_test::DdeClient& client) {
            EXPECT_EQ(client.Request(name, format), state) << name;
        });
    };
    expect("HOT", "1 FULL");
    expect("Pressure", "11.5 HIGH");
    expect("pressure", "11.5 HIGH");
    expect("NoSuchName", "");
    expect("HOT", "", CF_OEMTEXT);
}

TEST_F(DdeOut, AHotLinkTellsChangesAndNothingElse) {
    AsClient([this](zentrik_test::DdeClient& client) {
        EXPECT_TRUE(client.Advise("HOT"));
        EXPECT_FALSE(client.Advise("NoSuchName"));
        Type("tick"); // nothing has changed
        for (const char* state : {"0 NULL", "1 LOW"}) {
            TheEngine().states = {{"HOT", state}, {"Pressure", std::string(state) + "!"}};
            Type("tick");
            EXPECT_TRUE(Await([&] {
                return !client.Advised().empty() &&
                       client.Advised().back() == std::string("HOT = ") + state;
            }));
        }
        EXPECT_EQ(client.Advised(), (Lines{"HOT = 0 NULL", "HOT = 1 LOW"}));
    });
}

TEST_F(DdeOut, APokeOfTextThatIsNoNumberIsRefused) {
    // What the client hears of it depends on the system.
    AsClient([](zentrik_test::DdeClient& client) {
        EXPECT_TRUE(client.Poke("Rate", "3,25\r\n"));
        client.Poke("Rate", "n/a");
        client.Poke("Rate", std::string(1000, '9'));
        client.Poke("NoSuchItem", "1");
        client.Poke("Rate", "4", CF_OEMTEXT);
    });
    EXPECT_EQ(DDEinfo.Rate, 3.25);
    const Lines told = Told();
    ASSERT_EQ(told.size(), 4u);
    EXPECT_EQ(told[1], "Poke refused: Rate = n/a: not a number");
    EXPECT_EQ(told[3], "Poke refused: there is no item NoSuchItem");
}

} // namespace
