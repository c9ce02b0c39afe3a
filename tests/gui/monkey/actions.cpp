#include "tests/gui/monkey/actions.h"

#include "shell/services/ZENTRIK.h"
#include "tests/gui/driver/app.h"

#include <utility>

namespace monkey {

namespace {

constexpr int kFileKinds = 1136; // the list of file kinds in the system's file dialogs

std::string Quoted(const std::string& text) {
    constexpr std::size_t kShown = 60;
    std::string quoted = "\"";
    quoted.append(text, 0, kShown);
    return quoted += text.size() > kShown ? "...\"" : "\"";
}

std::string Named(HWND hwnd) {
    return gui::ClassOf(hwnd) + " " + std::to_string(GetDlgCtrlID(hwnd)) + " " +
           Quoted(gui::TextOf(hwnd));
}

void Notify(HWND control, int code) {
    PostMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

std::vector<HWND> Documents(const Screen& screen) {
    std::vector<HWND> documents;
    for (HWND child : gui::ChildrenOf(screen.Client()))
        if ((GetWindowLongA(child, GWL_EXSTYLE) & WS_EX_MDICHILD) && IsWindowEnabled(child))
            documents.push_back(child);
    return documents;
}

void Click(HWND hwnd) {
    PostMessageA(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    PostMessageA(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
}

} // namespace

std::string Actions::DoOne(Screen& screen) {
    const std::vector<HWND> dialogs = screen.Dialogs();
    // Most file dialogs and some others leave the frame usable, and users do use it.
    if (!dialogs.empty() && (!screen.FrameTakesInput() || dice_.Percent(80)))
        return WithDialog(screen, dice_.Percent(80) ? dialogs.front() : dice_.One(dialogs));
    return screen.FrameTakesInput() ? WithFrame(screen) : "nothing takes input";
}

std::string Actions::WithFrame(Screen& screen) {
    const std::vector<HWND> documents = Documents(screen);
    const std::size_t what = dice_.Below(100);
    if (what < (documents.size() < 2 ? 20 : 2))
        return OpenSound(screen);
    if (what < 55)
        return MenuCommand(screen, screen.Frame());
    if (what < 65 && screen.Toolbar())
        return ToolbarButton(screen);
    if (what < 90)
        return documents.empty() ? MenuCommand(screen, screen.Frame())
                                 : WithDocument(screen, documents);
    return what < 98 ? PressKey(screen) : CloseFrame(screen);
}

// Most commands do something only with a project or a system.
std::string Actions::OpenSound(const Screen& screen) {
    const bool project = dice_.Percent(50);
    next_file_ = files_.Work().Path(project ? "plant.mrv" : "tank.lse");
    PostMessageA(screen.Frame(), WM_COMMAND, project ? CM_OPEN_MORV : CM_OPEN_SYSTEM, 0);
    return project ? "open the project" : "open the system";
}

std::string Actions::MenuCommand(Screen& screen, HWND window) {
    const std::vector<int> commands = screen.Commands(window);
    if (commands.empty())
        return "a menu that is all grey";
    const int command = dice_.One(commands);
    exit_asked_ = exit_asked_ || command == CM_EXIT;
    const bool twice = dice_.Percent(5);
    for (int i = twice ? 2 : 1; i > 0; --i)
        PostMessageA(window, WM_COMMAND, static_cast<WPARAM>(command), 0);
    return (twice ? "twice command " : "command ") + std::to_string(command);
}

std::string Actions::ToolbarButton(const Screen& screen) {
    const std::vector<HWND> buttons = screen.Controls(screen.Toolbar());
    if (buttons.empty())
        return "a toolbar without buttons";
    HWND button = dice_.One(buttons);
    // As a click, and as the button tells it where window handles have 16 bits.
    if (dice_.Percent(50))
        Click(button);
    else
        PostMessageA(screen.Toolbar(), WM_COMMAND, static_cast<WPARAM>(GetDlgCtrlID(button)), 0);
    return "toolbar button " + std::to_string(GetDlgCtrlID(button));
}

std::string Actions::CloseFrame(const Screen& screen) {
    exit_asked_ = true;
    PostMessageA(screen.Frame(), WM_SYSCOMMAND, SC_CLOSE, 0);
    return "close the frame";
}

std::string Actions::WithDocument(const Screen& screen, const std::vector<HWND>& documents) {
    HWND document = dice_.Percent(60) ? documents.front() : dice_.One(documents);
    const std::string name = " of " + Quoted(gui::TextOf(document));
    HWND inner = gui::TopChildOf(document);
    const std::size_t what = dice_.Below(100);
    if (what < 10) {
        PostMessageA(screen.Client(), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(document), 0);
        return "activation" + name;
    }
    if (what < 25)
        return Shape(document) + name;
    if (inner && gui::ClassOf(inner) == "Edit")
        return Type(inner) + name;
    return inner ? WithRows(screen, document, inner) + name : "a document without a control";
}

std::string Actions::Shape(HWND document) {
    static const std::vector<std::pair<WPARAM, const char*>> shapes{{SC_CLOSE, "close"},
                                                                    {SC_CLOSE, "close"},
                                                                    {SC_MAXIMIZE, "maximizing"},
                                                                    {SC_MINIMIZE, "minimizing"},
                                                                    {SC_RESTORE, "restoring"}};
    const auto& [command, name] = dice_.One(shapes);
    PostMessageA(document, WM_SYSCOMMAND, command, 0);
    return name;
}

std::string Actions::WithRows(const Screen& screen, HWND document, HWND list) {
    const LRESULT rows = screen.Process().Send(list, LB_GETCOUNT);
    const std::size_t row = dice_.Below(rows > 0 ? static_cast<std::size_t>(rows) : 0);
    screen.Process().Send(list, LB_SETCURSEL, row);
    const bool twice = dice_.Percent(60);
    PostMessageA(document, WM_COMMAND,
                 MAKEWPARAM(GetDlgCtrlID(list), twice ? LBN_DBLCLK : LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
    return std::string(twice ? "double-click on row " : "row ") + std::to_string(row);
}

std::string Actions::WithDialog(Screen& screen, HWND dialog) {
    const std::string name = " in " + Quoted(gui::TextOf(dialog));
    if (GetDlgItem(dialog, gui::kFileName))
        return FileDialog(screen, dialog) + name;
    const std::size_t what = dice_.Below(100);
    if (what < 6) {
        PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
        return "close" + name;
    }
    if (what < 14)
        return PressKey(screen) + name;
    if (what < 30 && GetMenu(dialog))
        return MenuCommand(screen, dialog) + name;
    std::vector<HWND> controls = screen.Controls(dialog);
    std::erase_if(controls, [](HWND control) { return gui::ClassOf(control) == "Static"; });
    if (controls.empty())
        return "nothing" + name;
    return Control(screen, dialog, dice_.One(controls)) + name;
}

std::string Actions::FileDialog(const Screen& screen, HWND dialog) {
    if (dice_.Percent(20)) {
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        return "cancel";
    }
    const std::string kinds = gui::TextOf(GetDlgItem(dialog, kFileKinds));
    const std::size_t star = kinds.find("*.");
    const std::string extension =
        star == kinds.npos ? ""
                           : kinds.substr(star + 1, kinds.find_first_of(");", star) - star - 1);
    const std::string name =
        next_file_.empty() ? files_.AnyName(dice_, extension) : std::exchange(next_file_, "");
    screen.Process().Send(GetDlgItem(dialog, gui::kFileName), WM_SETTEXT, 0,
                          reinterpret_cast<LPARAM>(name.c_str()));
    PostMessageA(dialog, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDOK)));
    return "file " + Quoted(name);
}

std::string Actions::Control(const Screen& screen, HWND dialog, HWND control) {
    const std::string kind = gui::ClassOf(control);
    if (kind == "Edit")
        return Type(control);
    if (kind == "ListBox")
        return List(screen, control);
    if (kind == "ComboBox")
        return Combo(screen, control);
    // Twice in a row, as by a hand that trembles.
    const bool twice = dice_.Percent(15);
    const std::string name = (twice ? "two clicks on " : "click on ") + Named(control);
    for (int i = twice ? 2 : 1; i > 0 && (GetParent(control) == dialog || kind == "Button"); --i)
        Click(control);
    return name;
}

std::string Actions::List(const Screen& screen, HWND list) {
    const LRESULT rows = screen.Process().Send(list, LB_GETCOUNT);
    const std::size_t row = dice_.Below(rows > 0 ? static_cast<std::size_t>(rows) : 0);
    if (GetWindowLongA(list, GWL_STYLE) & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL))
        screen.Process().Send(list, LB_SETSEL, dice_.Percent(70), static_cast<LPARAM>(row));
    else
        screen.Process().Send(list, LB_SETCURSEL, row);
    const bool twice = dice_.Percent(40);
    Notify(list, LBN_SELCHANGE);
    if (twice)
        Notify(list, LBN_DBLCLK);
    return (twice ? "double-click on row " : "row ") + std::to_string(row) + " of " + Named(list);
}

std::string Actions::Combo(const Screen& screen, HWND combo) {
    const LRESULT rows = screen.Process().Send(combo, CB_GETCOUNT);
    const std::size_t row = dice_.Below(rows > 0 ? static_cast<std::size_t>(rows) : 0);
    screen.Process().Send(combo, CB_SETCURSEL, row);
    Notify(combo, CBN_SELCHANGE);
    return "row " + std::to_string(row) + " of " + Named(combo);
}

// Letters go in as they are typed, whole texts as they are pasted.
std::string Actions::Type(HWND edit) {
    const std::string text = AnyText();
    if (dice_.Percent(50)) {
        for (char c : text)
            PostMessageA(edit, WM_CHAR, static_cast<unsigned char>(c), 1);
        return "letters " + Quoted(text);
    }
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()), SMTO_NORMAL,
                        gui::kPatience, &answer);
    return "text " + Quoted(text);
}

std::string Actions::PressKey(const Screen& screen) {
    static const std::vector<WPARAM> keys{VK_RETURN, VK_ESCAPE, VK_TAB,  VK_DELETE, VK_BACK,
                                          VK_SPACE,  VK_DOWN,   VK_UP,   VK_END,    VK_HOME,
                                          VK_F1,     VK_F10,    VK_NEXT, 'A',       '7'};
    const WPARAM key = dice_.One(keys);
    HWND focus = screen.Focus();
    if (!focus)
        return "a key without focus";
    PostMessageA(focus, WM_KEYDOWN, key, 1);
    PostMessageA(focus, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    return "key " + std::to_string(key);
}

std::string Actions::AnyText() {
    static const std::vector<std::string> texts{
        "",        "a",          "Level", "HIGH",        "level pressure", "Rule 1\r\nEndRule\r\n",
        "EndRule", "Rule",       "-5",    "1e308",       "99999999999",    "0.5",
        "%s%n%d",  "\t",         "  ",    "tab\there",   "C:\\x.cpp",      "quo\"te",
        "PROCESS", "/* comment", "If (a", "unsigned int"};
    if (dice_.Percent(10))
        return std::string(dice_.Below(600), dice_.Percent(50) ? 'x' : ' ');
    return dice_.One(texts);
}

} // namespace monkey
