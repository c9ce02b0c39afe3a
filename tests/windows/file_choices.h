// File dialogs answered in the process, and what they were asked.
#pragma once

#include "shell/core/record_text.h"
#include "shell/services/file_dialogs.h"

#include <deque>
#include <gtest/gtest.h>
#include <windows.h>

#include <commdlg.h>

namespace zentrik_test {

// While it lives the file dialogs that come are answered with these choices in turn; one that no
// choice is left for is a failure.
class FileChoices {
public:
    FileChoices()
        : before_(SetFileDialogShower(
              [this](OPENFILENAMEA& record, bool save) { return Answer(record, save); })) {}
    FileChoices(const FileChoices&) = delete;
    FileChoices& operator=(const FileChoices&) = delete;
    ~FileChoices() {
        SetFileDialogShower(before_);
        EXPECT_TRUE(choices_.empty()) << choices_.size() << " file dialogs did not come";
    }

    FileChoices& Choose(const std::string& path) { return Meanwhile({}, path); }
    FileChoices& Cancel() { return Meanwhile({}, ""); }
    // What the user does elsewhere in the program before choosing; without a path, cancelling.
    FileChoices& Meanwhile(std::function<void()> act, const std::string& path) {
        choices_.push_back({std::move(act), path});
        return *this;
    }

    // "open|title|extension|flags|filter|pattern..." of each dialog, without the flag that hides
    // "read only" and is always there.
    std::vector<std::string> asked;

private:
    struct Choice {
        std::function<void()> act;
        std::string path;
    };

    static std::string Question(const OPENFILENAMEA& record, bool save) {
        EXPECT_EQ(record.hwndOwner, nullptr);
        EXPECT_EQ(record.nMaxFile, static_cast<DWORD>(kNameSize));
        EXPECT_STREQ(record.lpstrFile, "");
        EXPECT_NE(record.Flags & OFN_HIDEREADONLY, 0u);
        std::string text = save ? "save|" : "open|";
        text += std::string(record.lpstrTitle) + "|" + record.lpstrDefExt + "|" +
                std::to_string(record.Flags & ~static_cast<DWORD>(OFN_HIDEREADONLY));
        for (const char* part = record.lpstrFilter; *part; part += std::strlen(part) + 1)
            text += std::string("|") + part;
        return text;
    }

    bool Answer(OPENFILENAMEA& record, bool save) {
        asked.push_back(Question(record, save));
        if (choices_.empty()) {
            ADD_FAILURE() << "an unexpected file dialog: " << asked.back();
            return false;
        }
        const Choice choice = std::move(choices_.front());
        choices_.pop_front();
        if (choice.act)
            choice.act();
        if (choice.path.size() >= record.nMaxFile) {
            ADD_FAILURE() << "too long for the dialog: " << choice.path;
            return false;
        }
        std::memcpy(record.lpstrFile, choice.path.c_str(), choice.path.size() + 1);
        return !choice.path.empty();
    }

    std::deque<Choice> choices_;
    FileDialogShower before_;
};

} // namespace zentrik_test
