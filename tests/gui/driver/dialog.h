// A dialog of the program, worked by the identifiers of its controls.
#pragma once

#include "tests/gui/driver/program.h"

#include <string>
#include <vector>
#include <windows.h>

namespace gui {

class Dialog {
public:
    Dialog(Program& program, HWND hwnd) : program_(program), hwnd_(hwnd) {}

    HWND Window() const { return hwnd_; }
    HWND Control(int id) const; // fails when there is none
    bool Has(int id) const { return GetDlgItem(hwnd_, id) != nullptr; }
    bool Open() const { return IsWindow(hwnd_) && IsWindowVisible(hwnd_); }

    std::string Text(int id) const;
    void SetText(int id, const std::string& text);
    std::vector<std::string> Rows(int id) const;      // of a list box
    std::vector<std::string> ComboRows(int id) const; // of a combo box

    // Selects one row of a list box as a click does, with its notification.
    void Select(int id, int row);
    // Selects exactly these rows of a list box with multiple selection.
    void SelectRows(int id, const std::vector<int>& rows);
    void SelectCombo(int id, int row);
    void DoubleClick(int id, int row); // which must show nothing

    // Presses a button and waits for what it does, which must show nothing more.
    void Click(int id);
    // Presses a button that will show something; Program::Finish ends it.
    void Press(int id);
    void PressDoubleClick(int id, int row);
    void Close();    // the system menu's close, which must show nothing more
    void WaitGone(); // until the dialog is closed

private:
    void StartNotify(int id, int code);

    Program& program_;
    HWND hwnd_;
};

} // namespace gui
