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
    void (*program_activated)(HWND dialog, bool active) = nullptr;
    void (*front_changed)(HWND dialog) = nullptr; // after another window has become active
    bool (*changed)(HWND dialog) = nullptr; // it has what would be lost if the program ended now
};

// A dialog procedure that does what `table` says, in the colours of the dialogs. The key F1 opens
// the page of the guide about the dialog.
INT_PTR RunDialogTable(const DialogTable& table, HWND dialog, UINT message, WPARAM wParam);

// Ends the dialog. Its window lasts until dialogs and boxes that were opened later are answered.
void CloseDialog(HWND dialog);

// Ends the dialog and changes nothing.
void LeaveDialog(HWND dialog);

// False once the dialog was ended or is gone.
bool IsDialogOpen(HWND dialog);

// For editors that do not follow their changes: while one is open there may be some.
inline bool MayBeChanged(HWND) {
    return true;
}

// Brings a dialog whose changes would be lost to the front: of those without an owner, or of all.
// False when there is none.
enum class Dialogs { WithoutOwner, All };
bool ShowUnsavedDialog(Dialogs among);

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

// A window of the program becomes active, or is no longer: the open dialogs are told once the
// windows have changed their order.
void TellFrontChanged();

// Answers the colour messages of a dialog: light grey, with texts on a grey of 200.
// Returns 0 for any other message.
INT_PTR DialogColours(UINT message, WPARAM wParam);

// The text of a control, at most `size` bytes with its NUL.
std::string ControlText(HWND dialog, int id, int size);

// Lets an edit control take no more than a field of `size` bytes holds.
void LimitText(HWND dialog, int id, int size);

// A WM_COMMAND's notification code is `code` and comes from control `id`.
bool Notified(WPARAM wParam, int id, int code);
