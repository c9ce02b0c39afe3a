#include "tests/gui/driver/built_program.h"

#include "tests/dde_client.h"
#include "tests/gui/driver/failure.h"

namespace gui {

namespace {

constexpr char kClass[] = "MorvProgram";
constexpr DWORD kCompileTime = 200000; // ms
constexpr DWORD kOutputTime = 60000;

} // namespace

void CommandWithCheck(App& app, int id) {
    app.Start(id);
    Dialog debug = app.WaitDialog("Debug");
    debug.Press(DEBUG_START);
    app.ExpectBox("Debug Finalitzat", "Debug");
    app.Finish();
    app.Finish();
}

BuiltProgram::BuiltProgram(const Program& zentrik, const std::string& folder,
                           const std::string& name)
    : zentrik_(zentrik), name_(name), path_(folder + "\\Api" + name),
      compiler_log_(folder + "\\zkcc.log") {}

void BuiltProgram::Forget() const {
    ForgetCompiler();
    DeleteFileA((path_ + ".exe").c_str());
    DeleteFileA((path_ + ".log").c_str());
}

void BuiltProgram::ForgetCompiler() const {
    DeleteFileA(compiler_log_.c_str());
}

void BuiltProgram::AwaitMade() const {
    zentrik_.WaitFor(
        compiler_log_,
        [&] { return FileContent(compiler_log_).find("zkcc: ") != std::string::npos; },
        kCompileTime);
    const std::string said = FileContent(compiler_log_);
    if (said.find("zkcc: made ") == std::string::npos || !FileExists(path_ + ".exe"))
        Fail("the compiler utility made no program:\n" + said);
}

HWND BuiltProgram::AwaitLine(const std::string& text) const {
    HWND window = nullptr;
    zentrik_.WaitFor(
        "the line " + text + " of the built program",
        [&] {
            window = FindWindowA(kClass, nullptr);
            return window && IsWindowVisible(window) &&
                   FileContent(path_ + ".log").find(text) != std::string::npos;
        },
        kOutputTime);
    return window;
}

void BuiltProgram::Poke(const std::string& conversation,
                        const std::vector<std::pair<const char*, const char*>>& items) const {
    zentrik_test::DdeClient client;
    zentrik_.WaitFor("the conversation " + conversation,
                     [&] { return client.Connect(("api" + name_).c_str(), conversation.c_str()); });
    for (const auto& [item, value] : items)
        if (!client.Poke(item, value))
            Fail(std::string("cannot poke ") + item);
}

void BuiltProgram::Type(HWND window, const std::string& line) const {
    const HWND entry = FindWindowExA(window, nullptr, "EDIT", nullptr);
    SendMessageA(entry, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageA(entry, WM_KEYDOWN, VK_RETURN,
                 0); // posted, it would find the text of the next line
}

std::string BuiltProgram::Close(HWND window) const {
    const std::string end = "Api" + name_ + " ends\r\n";
    PostMessageA(window, WM_CLOSE, 0, 0);
    std::string log;
    zentrik_.WaitFor("the end of the built program", [&] {
        log = FileContent(path_ + ".log");
        return !IsWindow(window) && log.ends_with(end);
    });
    return log;
}

} // namespace gui
