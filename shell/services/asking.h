// Questions that are open: file dialogs and boxes without an owner leave the rest of the program
// usable, so what one is about could be asked for a second time.
#pragma once

#include <initializer_list>
#include <vector>
#include <windows.h>

// What is asked: for a name to save under, or whether to save before closing.
enum class Question { Name, Close };

// A question about `subject`, from the first box or file dialog to the last answer. While one
// lives, a second one of its kind about the same subject is refused: it only brings the open
// dialog, which is found by one of the captions, to the front.
class Asking {
public:
    Asking(HWND subject, Question question, std::initializer_list<const char*> captions);
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
    ~Asking();

    bool Refused() const { return refused_; }

private:
    HWND subject_;
    Question question_;
    std::vector<const char*> captions_;
    bool refused_;
};

// Brings the dialog or box of this thread with one of these captions to the front; without one,
// the dialog or box that was used last.
void BringDialogToFront(const std::vector<const char*>& captions = {});
