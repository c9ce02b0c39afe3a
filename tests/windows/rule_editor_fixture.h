// The rule editor in the process, and what its tests share.
#pragma once

#include "tests/core/core_test.h"
#include "tests/windows/dialog_test.h"
#include "tests/windows/frame_window.h"

#include "shell/core/paths.h"
#include "shell/services/editor.h"
#include "shell/services/VARMORV.h"
#include "shell/services/ZENTRIK.h"
#include "system/core/rule_files.h"
#include "system/core/rule_index.h"
#include "system/core/rule_text.h"
#include "system/rule_commands.h"
#include "system/rule_editor.h"
#include "system/rule_window.h"

#include <memory>

namespace zentrik_test {

using Rows = std::vector<std::string>;

inline const std::string kOne = "Rule 1\r\na\r\nEndRule\r\n";
inline const std::string kTwo = "Rule 2\r\nbb\r\nEndRule\r\n";
inline const std::string kThree = "Rule 3\r\nccc\r\nEndRule\r\n";

inline std::string Title(HWND hwnd) {
    char title[kNameSize] = "";
    GetWindowTextA(hwnd, title, sizeof title);
    return title;
}

inline std::string Record(const std::string& name, int bor = 0) {
    RuleIndexRecord record{};
    SetText(record.name, name);
    record.bor = bor;
    return std::string(BytesOf(record));
}

// The rule editor beside a text window, in a work folder of its own.
class RuleEditorTest : public testing::Test {
protected:
    RuleEditorTest() {
        GetCurrentDirectoryA(sizeof before_, before_);
        SetText(WorkPath, temp_.Path("")); // which is the current one after every file dialog
        SetCurrentDirectoryA(WorkPath);
    }
    ~RuleEditorTest() override {
        box_.reset();
        EditRule = 0;
        SetCurrentDirectoryA(before_);
        SetText(WorkPath, "");
    }

    void OpenText(const std::string& path) {
        OpenEdit(path.c_str());
        child_ = GetMdi();
        edit_ = TextHwnd();
        SetText(RuleFile, path);
        SetText(RuleSize, WithExtension(path, ".siz"));
    }
    void Start(const std::string& path) {
        OpenText(path);
        box_ = std::make_unique<ShownDialog>("Rule_Box", RuleDlg);
    }
    // A rules file of this content, opened in the editor.
    void StartWith(const std::string& text) {
        temp_.Put("a.rul", text);
        Start(temp_.Path("a.rul"));
    }

    Rows Rules() const { return box_->Rows(RULE_RULES); }
    Rows Tags() const { return box_->Rows(RULE_TAGS); }
    std::string Count() const { return box_->Text(RULE_COUNT); }
    std::string RulesText() const { return EditText(edit_); }
    void SetRulesText(const std::string& text) const { SetWindowTextA(edit_, text.c_str()); }
    bool IsModified() const { return SendMessageA(edit_, EM_GETMODIFY, 0, 0) != 0; }
    void Type(char key) const { SendMessageA(edit_, WM_CHAR, static_cast<WPARAM>(key), 1); }
    void Press(int id) const { box_->Press(id); }

    TempFolder temp_;
    FrameWindow frame_;
    std::unique_ptr<ShownDialog> box_;
    HWND child_ = nullptr;
    HWND edit_ = nullptr;

private:
    char before_[MAX_PATH];
};

} // namespace zentrik_test
