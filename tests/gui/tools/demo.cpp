// Shows the program at work on the sample project in C:\zentrik:
//     demo --open              opens the sample and leaves the program to the user
//     demo --visit             opens the sample and exits again
//     demo --compile           opens and compiles it, and exits when the compiler utility is done
//     demo [--tour <folder>]   opens, debugs, compiles and executes it, with a picture of each step
//                              in the folder (screenshots\ of the out folder)
// Exit code 0 only when everything happened.
#include "shell/services/ZENTRIK.h"
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/built_program.h"
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/screenshot.h"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr char kWorkFolder[] = "C:\\zentrik";
constexpr char kSample[] = "C:\\zentrik\\boiler";
constexpr char kProject[] = "C:\\zentrik\\boiler\\boiler.mrv";

void Say(const std::string& what) {
    std::puts(what.c_str());
    std::fflush(stdout);
}

class Demo {
public:
    explicit Demo(bool leave_it)
        : program_(gui::BinFolder() + "\\zentrik.exe", kWorkFolder, leave_it), app_(program_),
          built_(program_, kSample, "boiler") {
        Say("started the program in " + std::string(kWorkFolder) + " and closed its About box");
    }

    void Open() {
        app_.CommandWithFile(CM_OPEN_MORV, "Open MORV Project", kProject);
        const auto rows = app_.Rows(gui::kProject);
        if (rows.size() < 3)
            gui::Fail("the sample project did not open");
        Say("opened " + std::string(kProject) + ": " + std::to_string(rows.size()) + " rows");
    }

    // `window` is in front of the program's own.
    void Picture(const std::string& folder, const std::string& name, HWND window = nullptr) {
        for (HWND each : {app_.Frame(), window})
            if (each)
                RedrawWindow(each, nullptr, nullptr,
                             RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        AwaitStillScreen();
        const std::string path = folder + "\\" + name + ".bmp";
        if (!gui::SaveScreenshot(path))
            gui::Fail("cannot write " + path);
        Say("saved " + path);
    }

    void Debug() {
        gui::CommandWithCheck(app_, CM_DEBUG);
        Say("checked the rules: " + std::to_string(app_.Rows(gui::kMessages).size()) +
            " lines of findings");
    }

    // Compile does not wait for the compiler, and Execute not either.
    void Compile() {
        const char* const generated[] = {"boilerR.h", "boilerR.cpp", "ddecom.h", "ddecom.cpp",
                                         "consts.h"};
        built_.Forget();
        for (const char* file : generated)
            DeleteFileA(Path(file).c_str());
        app_.Command(CM_COMPILE);
        for (const char* file : generated) {
            if (!gui::FileExists(Path(file)))
                gui::Fail("Compile did not write " + Path(file));
            Say("generated " + Path(file));
        }
        app_.CommandWithFile(CM_OPEN_FILE, "Open File", Path("boilerR.cpp"));
        Say("waiting for the compiler utility");
        built_.AwaitMade();
    }

    // Another program tells what the plant measures; the rules say what they make of it.
    void Execute(const std::string& pictures) {
        built_.ForgetCompiler();
        gui::CommandWithCheck(app_, CM_EXECUTE);
        Say("executed: checked, generated and started the program");
        built_.AwaitLine("Apiboiler starts");
        built_.Poke("boiler", {{"Pressure", "11.5"},
                               {"DrumLevel", "55"},
                               {"SteamFlow", "14"},
                               {"FeedFlow", "13.5"},
                               {"FlameSignal", "80"},
                               {"GasPressure", "120"},
                               {"BurnerState", "1"}});
        built_.AwaitLine("FEED_NORMAL holds");
        const HWND window = built_.AwaitLine("HIGH_PRESSURE holds");
        built_.Type(window, "why HIGH_PRESSURE");
        built_.AwaitLine(": why HIGH_PRESSURE");
        SetWindowPos(window, HWND_TOPMOST, 300, 250, 700, 400, SWP_NOACTIVATE);
        Picture(pictures, "4_executed", window);
        Say("the built program says:\n" + built_.Close(window));
        built_.AwaitMade(); // Execute has compiled once more
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
    // Windows of another program are painted some time after they are asked to be.
    void AwaitStillScreen() {
        constexpr int kLooks = 10;
        const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
        std::vector<char> before;
        int same = 0;
        program_.WaitFor("a screen that does not change", [&] {
            std::vector<char> now = gui::ScreenPixels(screen);
            same = now == before ? same + 1 : 0;
            before = std::move(now);
            return same == kLooks;
        });
    }

    static std::string Path(const char* name) {
        return std::string(kSample).append("\\").append(name);
    }

    gui::Program program_;
    gui::App app_;
    gui::BuiltProgram built_;
};

void Tour(const std::string& folder) {
    gui::MakeFolders(folder);
    Demo demo(false);
    demo.Open();
    demo.Picture(folder, "1_project");
    demo.Debug();
    demo.Picture(folder, "2_findings");
    demo.Compile();
    demo.Picture(folder, "3_compiled");
    demo.Execute(folder);
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
        } else if (mode == "--compile" && count == 2) {
            Demo demo(false);
            demo.Open();
            demo.Compile();
            demo.Exit();
        } else if (count == 1 || (mode == "--tour" && count == 3)) {
            Tour(count == 1 ? gui::OutFolder() + "\\screenshots" : words[2]);
        } else {
            Say("demo [--open | --visit | --compile | --tour <folder>]");
            return 2;
        }
    } catch (const std::exception& failure) {
        Say(std::string("failed: ") + failure.what());
        return 1;
    }
    return 0;
}
