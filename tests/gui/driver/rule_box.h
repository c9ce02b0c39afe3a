// The rule editor as a user works it: its dialog and the text window beside it.
#pragma once

#include "tests/gui/driver/app.h"

#include <string>
#include <vector>

namespace gui {

constexpr char kRulesTitle[] = "Save MORV Rules As..."; // of its open dialogs, too
constexpr char kTagsTitle[] = "Open Tags Files";
constexpr char kRulesChanged[] = "Rules File has been changed. Save before Close?";

class RuleBox {
public:
    explicit RuleBox(App& app); // waits for the dialog, which was started

    HWND Window() const { return dialog_.Window(); }
    bool Open() const { return dialog_.Open(); }
    std::vector<std::string> Rules() const;
    std::vector<std::string> Tags() const;
    std::string Count() const;

    // The text beside it: of the window that was topmost when the dialog was found.
    HWND Edit() const { return edit_; }
    std::string Content() const;
    bool Modified() const;
    void TextChanged(); // another text window has taken the place of the first
    // Types keys: where the caret is put, and at the end of the text. '\r' is the Enter key.
    void TypeAt(std::size_t position, const std::string& keys);
    void TypeAtEnd(const std::string& keys);
    void Retype(const std::string& keys); // in place of the whole text

    void Select(int row);
    void Click(int id) { dialog_.Click(id); }
    void DoubleClickTag(int row);
    // Menu commands: one that shows nothing, one whose boxes the caller answers before
    // Program::Finish, and those with a file dialog.
    void Command(int id);
    void Start(int id);
    void CommandWithFile(int id, const std::string& title, const std::string& path);
    void CommandWithCancel(int id, const std::string& title);
    void StartCloseBox();    // the dialog's close box, which shows something
    void Ask(Answer answer); // waits for the question whether to save
    // Ends what started the dialog, after a command has closed it.
    void Finish();
    void Close(); // with nothing to save

private:
    App& app_;
    Dialog dialog_;
    HWND edit_ = nullptr;
};

// The index file of rules with these sizes, byte for byte.
std::string IndexFile(const std::vector<int>& sizes);

} // namespace gui
