// What every dialog shares.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <windows.h>

// Runs a modal dialog from the resources. Without an owner it disables no other window.
INT_PTR RunDialog(HWND owner, const char* name, DLGPROC procedure);

// What a dialog does when control `id` sends notification `code`.
struct DialogAction {
    int id;
    int code;
    void (*run)(HWND dialog);
};

// A dialog's behaviour.
struct DialogTable {
    void (*open)(HWND dialog);
    std::span<const DialogAction> actions;
    void (*close_box)(HWND dialog) = nullptr; // null: as IDCANCEL
    void (*destroyed)(HWND dialog) = nullptr;
};

// A dialog procedure that does what `table` says, in the colours of the dialogs.
INT_PTR RunDialogTable(const DialogTable& table, HWND dialog, UINT message, WPARAM wParam);

// Ends the dialog and changes nothing.
void LeaveDialog(HWND dialog);

// What one open dialog keeps of its own, from its opening until its window is destroyed. Several
// dialogs of a kind can be open at once, so this is no place for globals.
template <class T> struct DialogState {
    static T& Make(HWND dialog, T state = {}) {
        Drop(dialog);
        T* made = new T(std::move(state));
        SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(made));
        return *made;
    }
    static T& Of(HWND dialog) {
        return *reinterpret_cast<T*>(GetWindowLongPtrA(dialog, DWLP_USER));
    }
    // A window that dies before its dialog was opened has none.
    static void Drop(HWND dialog) {
        delete reinterpret_cast<T*>(SetWindowLongPtrA(dialog, DWLP_USER, 0));
    }
};

// Answers the colour messages of a dialog: light grey, with texts on a grey of 200.
// Returns 0 for any other message.
INT_PTR DialogColours(UINT message, WPARAM wParam);

// The text of a control, at most `size` bytes with its NUL.
std::string ControlText(HWND dialog, int id, int size);

// Lets an edit control take no more than a field of `size` bytes holds.
void LimitText(HWND dialog, int id, int size);

// A WM_COMMAND's notification code is `code` and comes from control `id`.
bool Notified(WPARAM wParam, int id, int code);
