// Dialogs in the process, over their real controls.
#pragma once

#include "shell/services/dialog.h"
#include "shell/services/handles.h"
#include "shell/services/list_rows.h"

#include <chrono>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zentrik_test {

// What a test does with a dialog that is open, in a modal loop or without one.
class DialogHandle {
public:
    explicit DialogHandle(HWND hwnd) : hwnd_(hwnd) {}

    HWND Window() const { return hwnd_; }
    HWND Item(int id) const { return GetDlgItem(hwnd_, id); }
    std::string Text(int id) const { return ControlText(hwnd_, id, 1000); }
    void Put(int id, const std::string& text) const { SetDlgItemTextA(hwnd_, id, text.c_str()); }
    // As a user's typing: the control's old text is replaced key by key.
    void Type(int id, const std::string& text) const {
        SendMessageA(Item(id), EM_SETSEL, 0, -1);
        for (char key : text)
            SendMessageA(Item(id), WM_CHAR, static_cast<WPARAM>(key), 1);
    }
    void Press(int id) const {
        SendMessageA(hwnd_, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(Item(id)));
    }
    void CloseBox() const { SendMessageA(hwnd_, WM_SYSCOMMAND, SC_CLOSE, 0); }

    std::vector<std::string> Rows(int id) const {
        const ListRows list(Item(id));
        std::vector<std::string> rows;
        for (int i = 0; i < list.Count(); ++i)
            rows.push_back(list.RowText(i));
        return rows;
    }
    std::vector<std::string> Choices(int id) const {
        std::vector<std::string> rows;
        for (int i = 0; i < SendMessageA(Item(id), CB_GETCOUNT, 0, 0); ++i) {
            char text[300] = "";
            SendMessageA(Item(id), CB_GETLBTEXT, static_cast<WPARAM>(i),
                         reinterpret_cast<LPARAM>(text));
            rows.push_back(text);
        }
        return rows;
    }
    void Choose(int id, int row) const {
        SendMessageA(Item(id), CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    }
    void Select(int id, int row) const { ListRows(Item(id)).Select(row); }
    void DoubleClick(int id, int row) const {
        Select(id, row);
        SendMessageA(hwnd_, WM_COMMAND, MAKEWPARAM(id, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(Item(id)));
    }

    // False once its procedure has ended the dialog.
    bool IsOpen() const { return IsWindowVisible(hwnd_) != FALSE; }

private:
    HWND hwnd_;
};

// A dialog that is shown without a modal loop, for its lifetime.
class ShownDialog : public DialogHandle {
public:
    ShownDialog(const char* name, DLGPROC procedure)
        : DialogHandle(CreateDialogParamA(hInst, name, nullptr, procedure, 0)) {
        EXPECT_NE(Window(), nullptr) << name;
        ShowWindow(Window(), SW_SHOWNA);
    }
    ShownDialog(const ShownDialog&) = delete;
    ShownDialog& operator=(const ShownDialog&) = delete;
    ~ShownDialog() { DestroyWindow(Window()); }
};

// Steps taken one after the other when the dialogs they name come up in modal loops, one for each
// dialog. A dialog that does not come up in time fails the test and ends the loops.
class DialogSteps {
public:
    using Step = std::function<void(const DialogHandle&)>;

    DialogSteps() {
        current_ = this;
        timer_ = SetTimer(nullptr, 0, 10, Tick);
    }
    DialogSteps(const DialogSteps&) = delete;
    DialogSteps& operator=(const DialogSteps&) = delete;
    ~DialogSteps() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
        for (const Waiting& step : steps_)
            EXPECT_TRUE(step.unwanted) << "the dialog " << step.title << " did not come up";
    }

    DialogSteps& When(const std::string& title, Step step) {
        steps_.push_back({title, std::move(step), false});
        return *this;
    }
    // Fails each time the dialog comes up, and ends it. Comes last.
    DialogSteps& Never(const std::string& title) {
        steps_.push_back({title,
                          [](const DialogHandle& dialog) {
                              ADD_FAILURE() << "an unwanted dialog came up";
                              EndDialog(dialog.Window(), 0);
                          },
                          true});
        return *this;
    }
    // Gives the file dialog `title` a path, after something else was done beside it.
    DialogSteps& ChooseFile(
        const std::string& title, const std::string& path,
        const std::function<void()>& beside = [] {}) {
        return When(title, [path, beside](const DialogHandle& dialog) {
            beside();
            constexpr int kNewName = 1148;
            constexpr int kOldName = 1152;
            dialog.Put(dialog.Item(kNewName) ? kNewName : kOldName, path);
            PostMessageA(dialog.Window(), WM_COMMAND, IDOK,
                         reinterpret_cast<LPARAM>(dialog.Item(IDOK)));
        });
    }
    DialogSteps& CancelFile(const std::string& title) {
        return When(title, [](const DialogHandle& dialog) {
            PostMessageA(dialog.Window(), WM_COMMAND, IDCANCEL,
                         reinterpret_cast<LPARAM>(dialog.Item(IDCANCEL)));
        });
    }

private:
    using Clock = std::chrono::steady_clock;
    struct Waiting {
        std::string title;
        Step step;
        bool unwanted;
    };

    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (current_)
            current_->TryNext();
    }

    void TryNext() {
        if (steps_.empty())
            return;
        const HWND dialog = FindWindowA("#32770", steps_.front().title.c_str());
        if (dialog && IsWindowVisible(dialog) && dialog != answered_) {
            answered_ = dialog;
            const Step step = steps_.front().step;
            if (!steps_.front().unwanted)
                steps_.pop_front();
            since_ = Clock::now();
            step(DialogHandle(dialog));
        } else if (Clock::now() - since_ > std::chrono::seconds(10)) {
            EnumThreadWindows(GetCurrentThreadId(), EndDialogWindow, 0);
        }
    }

    static BOOL CALLBACK EndDialogWindow(HWND hwnd, LPARAM) {
        char name[20] = "";
        GetClassNameA(hwnd, name, sizeof name);
        if (std::string(name) == "#32770")
            EndDialog(hwnd, 0);
        return TRUE;
    }

    static inline DialogSteps* current_ = nullptr;
    UINT_PTR timer_;
    std::deque<Waiting> steps_;
    HWND answered_ = nullptr;
    Clock::time_point since_ = Clock::now();
};

} // namespace zentrik_test
