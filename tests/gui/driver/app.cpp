#include "tests/gui/driver/app.h"

#include "tests/gui/driver/failure.h"

#include <algorithm>

namespace gui {

namespace {

HWND FindDialog(const Program& program, const std::string& title) {
    for (HWND dialog : Dialogs(program)) {
        char text[300] = "";
        GetWindowTextA(dialog, text, sizeof text);
        if (title == text && IsWindowEnabled(dialog))
            return dialog;
    }
    return nullptr;
}

HWND AwaitFileDialog(Program& program, const std::string& title) {
    HWND dialog = nullptr;
    program.WaitFor("the file dialog \"" + title + "\"", [&] {
        dialog = FindDialog(program, title);
        return dialog && GetDlgItem(dialog, kFileName);
    });
    return dialog;
}

const MenuItem* Find(const std::vector<MenuItem>& items,
                     const std::function<bool(const MenuItem&)>& wanted) {
    for (const MenuItem& item : items) {
        if (wanted(item))
            return &item;
        if (const MenuItem* below = Find(item.items, wanted))
            return below;
    }
    return nullptr;
}

} // namespace

HWND AwaitFrame(Program& program) {
    HWND about = nullptr;
    program.WaitFor("the About box", [&] {
        about = FindDialog(program, "About Zentrik");
        return about && GetDlgItem(about, IDOK);
    });
    HWND frame = nullptr;
    for (HWND hwnd : program.Windows())
        if (ClassOf(hwnd) == "ZentrikWin")
            frame = hwnd;
    if (!frame)
        Fail("no frame window behind the About box");
    PostMessageA(about, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(about, IDOK)));
    program.WaitFor("the end of the About box",
                    [&] { return !IsWindow(about) && IsWindowEnabled(frame); });
    return frame;
}

void AnswerFileDialog(Program& program, const std::string& title, const std::string& path) {
    HWND dialog = AwaitFileDialog(program, title);
    program.Send(GetDlgItem(dialog, kFileName), WM_SETTEXT, 0,
                 reinterpret_cast<LPARAM>(path.c_str()));
    PostMessageA(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
    program.WaitFor("the file dialog \"" + title + "\" taking " + path,
                    [&] { return !IsWindow(dialog) || !IsWindowEnabled(dialog); });
}

App::App(Kind kind, const Setup& setup) : folder_(std::make_unique<WorkFolder>()) {
    const std::string exe = Path(kind == Kind::Nt ? "zentrik.exe" : "zentrik98.exe");
    CopyTo(BinFolder() + "\\zentrik.exe", exe);
    if (setup)
        setup(*folder_);
    own_program_ = std::make_unique<Program>(exe, folder_->Folder());
    program_ = own_program_.get();
    Attach();
}

App::App(Program& program) : program_(&program) {
    Attach();
}

void App::Attach() {
    frame_ = AwaitFrame(*program_);
    for (HWND child : ChildrenOf(frame_))
        if (ClassOf(child) == "MDIClient" || ClassOf(child) == "MDICLIENT")
            client_ = child;
    if (!client_)
        Fail("the frame has no MDI client");
}

void App::Command(int id) {
    Start(id);
    Finish();
}

void App::Start(int id) {
    program_->Start(frame_, WM_COMMAND, id);
}

Dialog App::WaitDialog(const std::string& title) {
    HWND dialog = nullptr;
    program_->WaitFor("the dialog \"" + title + "\"", [&] {
        dialog = FindDialog(*program_, title);
        return dialog != nullptr;
    });
    return {*program_, dialog};
}

void App::ChooseFile(const std::string& title, const std::string& path) {
    AnswerFileDialog(*program_, title, path);
}

void App::CancelFile(const std::string& title) {
    HWND dialog = AwaitFileDialog(*program_, title);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL,
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
    program_->WaitFor("the end of the file dialog", [&] { return !IsWindow(dialog); });
}

void App::CommandWithFile(int id, const std::string& title, const std::string& path) {
    Start(id);
    ChooseFile(title, path);
    Finish();
}

void App::CommandWithCancel(int id, const std::string& title) {
    Start(id);
    CancelFile(title);
    Finish();
}

std::vector<HWND> App::Children(const std::string& class_name) const {
    std::vector<HWND> children;
    for (HWND child : ChildrenOf(client_))
        if (GetWindowLongA(child, GWL_EXSTYLE) & WS_EX_MDICHILD)
            if (class_name.empty() || ClassOf(child) == class_name)
                children.push_back(child);
    return children;
}

HWND App::Child(const std::string& class_name) const {
    const std::vector<HWND> children = Children(class_name);
    if (children.empty())
        Fail("no window of class " + class_name);
    return children.front();
}

HWND App::Inner(const std::string& class_name) const {
    return TopChildOf(Child(class_name));
}

std::vector<std::string> App::Rows(const std::string& class_name) const {
    return ListRows(Inner(class_name));
}

void App::SelectRow(const std::string& class_name, int row) {
    program_->Send(Inner(class_name), LB_SETCURSEL, row);
}

void App::StartDoubleClick(const std::string& class_name, int row) {
    SelectRow(class_name, row);
    HWND list = Inner(class_name);
    program_->Start(Child(class_name), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_DBLCLK),
                    reinterpret_cast<LPARAM>(list));
}

void App::Activate(HWND child) {
    program_->Send(client_, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(child));
    if (Children().front() != child)
        Fail("the window did not become the active one");
}

void App::Maximize(HWND child) {
    program_->Send(client_, WM_MDIMAXIMIZE, reinterpret_cast<WPARAM>(child));
}

void App::StartClose(HWND child) {
    program_->Start(child, WM_SYSCOMMAND, SC_CLOSE);
}

void App::CloseChild(HWND child) {
    StartClose(child);
    Finish();
    if (IsWindow(child))
        Fail("the window is still open");
}

std::string App::EditorText() const {
    return TextOf(Inner(kEditor));
}

void App::Type(const std::string& text) {
    HWND edit = Inner(kEditor);
    for (char c : text)
        program_->Send(edit, WM_CHAR, static_cast<unsigned char>(c), 1);
}

Inside& App::Inner() {
    if (!inside_)
        inside_ = std::make_unique<Inside>(*program_);
    return *inside_;
}

bool App::IsGrey(int id) {
    const std::vector<MenuItem> menu = Menu();
    const MenuItem* item =
        Find(menu, [&](const MenuItem& each) { return !each.popup && each.id == id; });
    if (!item)
        Fail("no menu item " + std::to_string(id));
    return item->grey;
}

bool App::IsGrey(const std::string& title) {
    const std::vector<MenuItem> menu = Menu();
    const MenuItem* item = Find(menu, [&](const MenuItem& each) { return each.text == title; });
    if (!item)
        Fail("no menu item \"" + title + "\"");
    return item->grey;
}

DWORD App::Exit() {
    Start(CM_EXIT);
    return Farewell();
}

DWORD App::Farewell() {
    Press(WaitBox("Zentrik")); // the ownership notice
    // The other box comes after the command, maybe before its end is known here.
    const Box last = WaitBox("Zentrik"); // the research group
    Finish();
    Press(last);
    return program_->ExitCode();
}

} // namespace gui
