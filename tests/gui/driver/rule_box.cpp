#include "tests/gui/driver/rule_box.h"

#include "tests/gui/driver/failure.h"

namespace gui {

namespace {

// A number as the four bytes of a little-endian file.
std::string Bytes(int number) {
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(static_cast<unsigned>(number) >> shift);
    return bytes;
}

} // namespace

RuleBox::RuleBox(App& app) : app_(app), dialog_(app.WaitDialog("Rules")) {
    TextChanged();
}

std::vector<std::string> RuleBox::Rules() const {
    return dialog_.Rows(RULE_RULES);
}

std::vector<std::string> RuleBox::Tags() const {
    return dialog_.Rows(RULE_TAGS);
}

std::string RuleBox::Count() const {
    return dialog_.Text(RULE_COUNT);
}

std::string RuleBox::Content() const {
    return TextOf(edit_);
}

bool RuleBox::Modified() const {
    return app_.Process().Send(edit_, EM_GETMODIFY) != 0;
}

void RuleBox::TextChanged() {
    edit_ = app_.Inner(kEditor);
}

void RuleBox::TypeAt(std::size_t position, const std::string& keys) {
    app_.Process().Send(edit_, EM_SETSEL, position, static_cast<LPARAM>(position));
    for (char key : keys)
        app_.Process().Send(edit_, WM_CHAR, static_cast<unsigned char>(key), 1);
}

void RuleBox::TypeAtEnd(const std::string& keys) {
    TypeAt(Content().size(), keys);
}

void RuleBox::Retype(const std::string& keys) {
    app_.Process().Send(edit_, EM_SETSEL, 0, -1);
    app_.Process().Send(edit_, WM_CLEAR);
    TypeAt(0, keys);
}

void RuleBox::Select(int row) {
    dialog_.Select(RULE_RULES, row);
}

void RuleBox::DoubleClickTag(int row) {
    dialog_.DoubleClick(RULE_TAGS, row);
}

void RuleBox::Command(int id) {
    Start(id);
    app_.Process().Finish();
}

void RuleBox::Start(int id) {
    app_.Process().Start(Window(), WM_COMMAND, static_cast<WPARAM>(id));
}

void RuleBox::CommandWithFile(int id, const std::string& title, const std::string& path) {
    Start(id);
    app_.ChooseFile(title, path);
    app_.Process().Finish();
}

void RuleBox::CommandWithCancel(int id, const std::string& title) {
    Start(id);
    app_.CancelFile(title);
    app_.Process().Finish();
}

void RuleBox::StartCloseBox() {
    app_.Process().Start(Window(), WM_SYSCOMMAND, SC_CLOSE);
}

void RuleBox::Ask(Answer answer) {
    const Box box =
        app_.ExpectBox(kRulesChanged, "Rules", Buttons::YesNoCancel, Icon::None, answer);
    if (box.owner != Window())
        Fail("the question does not belong to the dialog");
}

void RuleBox::Finish() {
    dialog_.WaitGone();
    app_.Finish();
}

void RuleBox::Close() {
    Command(RM_CLOSE);
    Finish();
}

std::string IndexFile(const std::vector<int>& sizes) {
    std::string file;
    int number = 0;
    for (int size : sizes) {
        std::string name = "Rule " + std::to_string(++number);
        name.resize(255);
        file += Bytes(size) + Bytes(0) + name + Bytes(0);
    }
    return file;
}

} // namespace gui
