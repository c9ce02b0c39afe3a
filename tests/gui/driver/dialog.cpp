#include "tests/gui/driver/dialog.h"

#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/window_query.h"

#include <algorithm>

namespace gui {

HWND Dialog::Control(int id) const {
    HWND control = GetDlgItem(hwnd_, id);
    if (!control)
        Fail("no control " + std::to_string(id) + " in " + Describe({hwnd_}));
    return control;
}

std::string Dialog::Text(int id) const {
    return TextOf(Control(id));
}

void Dialog::SetText(int id, const std::string& text) {
    program_.Send(Control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

std::vector<std::string> Dialog::Rows(int id) const {
    return ListRows(Control(id));
}

std::vector<std::string> Dialog::ComboRows(int id) const {
    return gui::ComboRows(Control(id));
}

void Dialog::StartNotify(int id, int code) {
    program_.Start(hwnd_, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Control(id)));
}

void Dialog::Select(int id, int row) {
    program_.Send(Control(id), LB_SETCURSEL, row);
    StartNotify(id, LBN_SELCHANGE);
    program_.Finish();
}

void Dialog::SelectRows(int id, const std::vector<int>& rows) {
    program_.Send(Control(id), LB_SETSEL, FALSE, -1);
    for (int row : rows)
        program_.Send(Control(id), LB_SETSEL, TRUE, row);
}

void Dialog::SelectCombo(int id, int row) {
    program_.Send(Control(id), CB_SETCURSEL, row);
    StartNotify(id, CBN_SELCHANGE);
    program_.Finish();
}

void Dialog::DoubleClick(int id, int row) {
    PressDoubleClick(id, row);
    program_.Finish();
}

void Dialog::PressDoubleClick(int id, int row) {
    program_.Send(Control(id), LB_SETCURSEL, row);
    StartNotify(id, LBN_DBLCLK);
}

void Dialog::Click(int id) {
    Press(id);
    program_.Finish();
}

void Dialog::Press(int id) {
    StartNotify(id, BN_CLICKED);
}

void Dialog::Close() {
    program_.Start(hwnd_, WM_SYSCOMMAND, SC_CLOSE);
    program_.Finish();
    WaitGone();
}

void Dialog::WaitGone() {
    program_.WaitFor("the end of a dialog", [&] { return !Open(); });
}

} // namespace gui
