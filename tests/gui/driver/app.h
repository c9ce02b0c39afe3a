// The program as a user has it: commands, boxes, file dialogs, documents.
#pragma once

#include "shell/core/messages.h"
#include "shell/services/ZENTRIK.h"
#include "tests/gui/driver/dialog.h"
#include "tests/gui/driver/inside.h"
#include "tests/gui/driver/places.h"
#include "tests/gui/driver/program.h"
#include "tests/gui/driver/window_query.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace gui {

enum class Kind { Nt, Win98 }; // the Windows that the program sees; the toolbar is on Win98 only

constexpr char kEditor[] = "Main";
constexpr char kProject[] = "Projec";
constexpr char kSystem[] = "Dial";
constexpr char kMessages[] = "Message";

constexpr int kFileName = 1148; // the field for the name in the system's file dialogs

// A message box as it stands on the screen.
struct Box {
    HWND hwnd;
    HWND owner;
    std::string text;
    std::string caption;
    Buttons buttons;
    Icon icon;
};

class App {
public:
    using Setup = std::function<void(const WorkFolder&)>;

    // Starts the program in a fresh folder, after `setup` has put files there, and closes the
    // About box.
    explicit App(Kind kind = Kind::Nt, const Setup& setup = {});

    // The same for a program that was just started elsewhere, which must live longer.
    explicit App(Program& program);

    Program& Process() { return *program_; }
    const WorkFolder& Work() const { return *folder_; }
    std::string Path(const std::string& name) const { return folder_->Path(name); }
    HWND Frame() const { return frame_; }
    HWND Client() const { return client_; }

    // Runs a menu command that shows nothing.
    void Command(int id);
    // Starts a menu command that shows something, which the next calls answer; Finish() ends it.
    void Start(int id);
    void Finish() { program_->Finish(); }

    // Waits for a message box, which must be exactly this, and answers it.
    Box ExpectBox(const std::string& text, const std::string& caption,
                  Buttons buttons = Buttons::Ok, Icon icon = Icon::None,
                  Answer answer = Answer::Ok);
    // The same for a box whose text is the program's to choose; returns it unanswered.
    Box WaitBox(const std::string& caption);
    void Press(const Box& box, Answer answer = Answer::Ok);
    // The box "WARNING" that reports a failed file operation.
    void ExpectError(const std::string& text) {
        ExpectBox(text, "WARNING", Buttons::Ok, Icon::Stop);
    }

    Dialog WaitDialog(const std::string& title);
    // Chooses a file in an open or save dialog with this title.
    void ChooseFile(const std::string& title, const std::string& path);
    void CancelFile(const std::string& title);
    // Answers the system's own question (overwrite a file, create a missing one).
    void AnswerSystemQuestion(Answer answer);

    // A command with one file dialog and nothing else.
    void CommandWithFile(int id, const std::string& title, const std::string& path);
    void CommandWithCancel(int id, const std::string& title);

    // MDI children, topmost first; all of them, or those of one class.
    std::vector<HWND> Children(const std::string& class_name = "") const;
    HWND Child(const std::string& class_name) const; // the topmost of its class; fails without one
    bool HasChild(const std::string& class_name) const { return !Children(class_name).empty(); }
    HWND Inner(const std::string& class_name) const; // its control
    std::vector<std::string> Rows(const std::string& class_name) const;
    void SelectRow(const std::string& class_name, int row);
    void StartDoubleClick(const std::string& class_name, int row);
    void Activate(HWND child);
    void Maximize(HWND child);
    void StartClose(HWND child); // the child's close box, which shows something
    void CloseChild(HWND child); // which shows nothing

    // The topmost editor.
    std::string EditorText() const;
    void Type(const std::string& text); // at the caret, as keys

    std::vector<MenuItem> Menu() { return Inner().Menu(frame_); }
    bool IsGrey(int id);                   // of a command anywhere in the menu
    bool IsGrey(const std::string& title); // of a popup anywhere in the menu
    Inside& Inner();

    // Exits with no document changed: the two farewell boxes. Returns the exit code.
    DWORD Exit();
    // After the exit was started: the two farewell boxes, in order.
    DWORD Farewell();

private:
    void Attach();

    std::unique_ptr<WorkFolder> folder_;
    std::unique_ptr<Program> own_program_;
    Program* program_;
    std::unique_ptr<Inside> inside_;
    HWND frame_ = nullptr;
    HWND client_ = nullptr;
};

// Reads what stands in a message box; nothing when the window is none (or is not complete yet).
std::optional<Box> ReadBox(HWND hwnd);

// Waits for the frame of a program just started, and closes the About box.
HWND AwaitFrame(Program& program);

// Waits for a file dialog, gives it the name and presses its button.
void AnswerFileDialog(Program& program, const std::string& title, const std::string& path);

} // namespace gui
