// Shows the program at work on the sample project in C:\zentrik:
//     demo --open              opens the sample and leaves the program to the user
//     demo --visit             opens the sample and exits again
//     demo [--tour <folder>]   opens, debugs, compiles and executes it, with a picture of each step
//                              in the folder (screenshots\ of the out folder)
// Exit code 0 only when everything happened.
#include "shell/files.h"
#include "shell/ZENTRIK.h"
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/screenshot.h"

#include <cstdio>
#include <functional>
#include <string>

namespace {

constexpr char kWorkFolder[] = "C:\\zentrik";
constexpr char kBuilt[] = "C:\\zentrik\\boiler\\Apiboiler"; // without its extension
constexpr char kTicks[] = "3";                              // after which the built program ends
constexpr int kCompileSeconds = 200;
constexpr int kOutputSeconds = 60;
constexpr char kProject[] = "C:\\zentrik\\boiler\\boiler.mrv";

void Say(const std::string& what) {
    std::puts(what.c_str());
    std::fflush(stdout);
}

class Demo {
public:
    explicit Demo(bool leave_it)
        : program_(gui::BinFolder() + "\\zentrik.exe", kWorkFolder, leave_it), app_(program_) {
        Say("started the program in " + std::string(kWorkFolder) + " and closed its About box");
    }

    void Open() {
        app_.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", kProject);
        const auto rows = app_.Rows(gui::kProject);
        if (rows.size() < 3)
            gui::Fail("the sample project did not open");
        Say("opened " + std::string(kProject) + ": " + std::to_string(rows.size()) + " rows");
    }

    void Picture(const std::string& folder, const std::string& name) {
        RedrawWindow(app_.Frame(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        const std::string path = folder + "\\" + name + ".bmp";
        if (!gui::SaveScreenshot(path))
            gui::Fail("cannot write " + path);
        Say("saved " + path);
    }

    // Debug as it runs by itself or at the start of Execute.
    void AnswerDebug() {
        gui::Dialog debug = app_.WaitDialog("Debug");
        debug.Press(DEBUG_START);
        app_.ExpectBox("Debug Finalitzat", "Debug");
        app_.Finish();
    }

    void Debug() {
        app_.Start(CM_DEBUG);
        AnswerDebug();
        app_.Finish();
        Say("checked the rules: " + std::to_string(app_.Rows(gui::kMessages).size()) +
            " lines of findings");
    }

    void Compile() {
        app_.Command(CM_COMPILE);
        for (const char* file :
             {"boilerR.h", "boilerR.cpp", "ddecom.h", "ddecom.cpp", "consts.h"}) {
            const std::string path = std::string(kWorkFolder) + "\\boiler\\" + file;
            if (!gui::FileExists(path))
                gui::Fail("Compile did not write " + path);
            Say("generated " + path);
        }
    }

    // Compile does not wait for the compiler, and Execute not either.
    void AwaitProgram() {
        Say("waiting for the compiler to make " + std::string(kBuilt) + ".exe");
        Await(kCompileSeconds, std::string(kBuilt) + ".exe",
              [] { return gui::FileExists(std::string(kBuilt) + ".exe"); });
    }

    void ShowOutput() {
        const std::string log = std::string(kBuilt) + ".log";
        const std::string last = "Tick " + std::string(kTicks) + ":";
        Await(kOutputSeconds, log, [&] { return Content(log).find(last) != std::string::npos; });
        Say("the built program says:\n" + Content(log));
    }

    void Execute() {
        app_.Start(CM_EXECUTE);
        AnswerDebug();
        app_.Finish();
        Say("executed: checked, generated and started the program");
    }

    void Exit() {
        if (app_.Exit() != 0)
            gui::Fail("the program ended with an error");
        Say("left the program");
    }

    void AwaitEnd() {
        Say("the program is yours; this ends with it");
        program_.ExitCode(INFINITE);
    }

private:
    static std::string Content(const std::string& path) {
        std::string text;
        files::ReadWhole(path.c_str(), files::Mode::Read, text);
        return text;
    }

    // Waits for what a program does that Zentrik has started; a failure tells what the compiler
    // said.
    void Await(int seconds, const std::string& what, const std::function<bool()>& there) const {
        try {
            program_.WaitFor(what, there, static_cast<DWORD>(seconds) * 1000);
        } catch (const std::exception& failure) {
            gui::Fail(failure.what() + std::string("\n") +
                      Content(std::string(kWorkFolder) + "\\boiler\\zkcc.log"));
        }
    }

    gui::Program program_;
    gui::App app_;
};

void Tour(const std::string& folder) {
    gui::MakeFolders(folder);
    // The programs that Zentrik starts inherit this.
    SetEnvironmentVariableA("MORV_TICKS", kTicks);
    DeleteFileA((std::string(kBuilt) + ".exe").c_str());
    DeleteFileA((std::string(kBuilt) + ".log").c_str());
    Demo demo(false);
    demo.Open();
    demo.Picture(folder, "1_project");
    demo.Debug();
    demo.Picture(folder, "2_findings");
    demo.Compile();
    demo.Picture(folder, "3_compiled");
    demo.AwaitProgram();
    demo.Execute();
    demo.ShowOutput();
    demo.Picture(folder, "4_executed");
    demo.Exit();
}

} // namespace

int main(int count, char** words) {
    const std::string mode = count > 1 ? words[1] : "";
    try {
        if (mode == "--open" && count == 2) {
            Demo demo(true);
            demo.Open();
            demo.AwaitEnd();
        } else if (mode == "--visit" && count == 2) {
            Demo demo(false);
            demo.Open();
            demo.Exit();
        } else if (count == 1 || (mode == "--tour" && count == 3)) {
            Tour(count == 1 ? gui::OutFolder() + "\\screenshots" : words[2]);
        } else {
            Say("demo [--open | --visit | --tour <folder>]");
            return 2;
        }
    } catch (const std::exception& failure) {
        Say(std::string("failed: ") + failure.what());
        return 1;
    }
    return 0;
}
