// Message boxes: dialogs that hold nothing but an icon, a text and buttons.
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/failure.h"

#include <algorithm>

namespace gui {

namespace {

bool HasButton(HWND box, int id) {
    HWND button = GetDlgItem(box, id);
    return button && IsWindowVisible(button);
}

std::optional<Buttons> ButtonsOf(HWND box) {
    const bool cancel = HasButton(box, IDCANCEL);
    if (HasButton(box, IDYES) && HasButton(box, IDNO))
        return cancel ? Buttons::YesNoCancel : Buttons::YesNo;
    // A lone button may have either number.
    if (HasButton(box, IDOK) != cancel)
        return Buttons::Ok;
    return {};
}

int ButtonFor(HWND box, Answer answer) {
    switch (answer) {
    case Answer::Yes:
        return IDYES;
    case Answer::No:
        return IDNO;
    case Answer::Cancel:
        return IDCANCEL;
    case Answer::Ok:
        break;
    }
    return HasButton(box, IDOK) ? IDOK : IDCANCEL;
}

HWND IconControl(HWND box) {
    for (HWND child : ChildrenOf(box))
        if (ClassOf(child) == "Static" &&
            (GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
            return child;
    return nullptr;
}

Icon IconOf(App& app, HWND box) {
    HWND control = IconControl(box);
    if (!control || !app.Process().Send(control, STM_GETICON))
        return Icon::None;
    switch (app.Inner().StockIcon(control)) {
    case 's':
        return Icon::Stop;
    case '!':
        return Icon::Exclamation;
    default:
        Fail("an unknown icon in " + Describe({box}));
    }
}

// The message box on top. The rule editor's dialog can stand above it, for it leaves the frame
// usable.
std::optional<Box> TopBox(const Program& program) {
    for (HWND dialog : Dialogs(program))
        if (std::optional<Box> box = ReadBox(dialog))
            return box;
    return {};
}

std::string Wanted(const std::string& text, const std::string& caption) {
    return "the box '" + text + "' with caption '" + caption + "'";
}

} // namespace

std::optional<Box> ReadBox(HWND hwnd) {
    Box box{hwnd, GetWindow(hwnd, GW_OWNER), "", "", Buttons::Ok, Icon::None};
    bool text_found = false;
    for (HWND child : ChildrenOf(hwnd)) {
        const std::string kind = ClassOf(child);
        if (kind == "Static") {
            if ((GetWindowLongA(child, GWL_STYLE) & SS_TYPEMASK) == SS_ICON)
                continue;
            if (text_found)
                return {};
            box.text = TextOf(child);
            text_found = true;
        } else if (kind != "Button") {
            return {};
        }
    }
    const std::optional<Buttons> buttons = ButtonsOf(hwnd);
    if (!text_found || !buttons)
        return {};
    box.caption = TextOf(hwnd);
    box.buttons = *buttons;
    return box;
}

Box App::WaitBox(const std::string& caption) {
    std::optional<Box> box;
    program_->WaitFor("a box with caption '" + caption + "'", [&] {
        box = TopBox(*program_);
        return box && box->caption == caption;
    });
    box->icon = IconOf(*this, box->hwnd);
    return *box;
}

Box App::ExpectBox(const std::string& text, const std::string& caption, Buttons buttons, Icon icon,
                   Answer answer) {
    std::optional<Box> box;
    program_->WaitFor(Wanted(text, caption), [&] {
        box = TopBox(*program_);
        if (box && (box->text != text || box->caption != caption))
            Fail("awaited " + Wanted(text, caption) + ", shown is " +
                 Wanted(box->text, box->caption));
        return box && box->text == text && box->caption == caption;
    });
    if (box->buttons != buttons)
        Fail("other buttons than awaited in " + Wanted(text, caption));
    box->icon = IconOf(*this, box->hwnd);
    if (box->icon != icon)
        Fail("another icon than awaited in " + Wanted(text, caption));
    Press(*box, answer);
    return *box;
}

void App::Press(const Box& box, Answer answer) {
    const int button = ButtonFor(box.hwnd, answer);
    HWND control = GetDlgItem(box.hwnd, button);
    if (!control)
        Fail("no such button in " + Wanted(box.text, box.caption));
    PostMessageA(box.hwnd, WM_COMMAND, button, reinterpret_cast<LPARAM>(control));
    // The program may end with its last box.
    program_->WaitFor("the end of " + Wanted(box.text, box.caption),
                      [&] { return !IsWindow(box.hwnd) || !program_->Alive(); });
}

void App::AnswerSystemQuestion(Answer answer) {
    std::optional<Box> box;
    program_->WaitFor("a question of the system", [&] {
        box = TopBox(*program_);
        return box && box->buttons == Buttons::YesNo;
    });
    Press(*box, answer);
}

} // namespace gui
