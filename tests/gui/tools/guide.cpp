// Makes the pictures of the user's guide: the sample is built by hand in C:\zentrik, from its
// sources to the running program, with a picture of each step.
//     guide <folder> [<compiler utility>]
// Without a compiler utility it ends before Execute. Exit code 0 only when everything happened.
#include "tests/core/sample.h"
#include "tests/gui/driver/app.h"
#include "tests/gui/driver/built_program.h"
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/rule_box.h"
#include "tests/gui/driver/screenshot.h"
#include "tests/gui/sample_making.h"

#include <cstdio>
#include <filesystem>
#include <set>
#include <vector>

namespace {

constexpr char kWork[] = "C:\\zentrik";
constexpr char kSample[] = "C:\\zentrik\\boiler\\";
constexpr DWORD kStill = 300; // ms, less than a caret stays

// The sources, the rules and the templates; no record file.
void PutSources() {
    const std::string wrong = zentrik_test::PutSample(kWork, "", gui::SourceFolder());
    if (!wrong.empty())
        gui::Fail(wrong);
    for (const auto& entry : std::filesystem::directory_iterator(kSample)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".cpp" && extension != ".rul")
            std::filesystem::remove(entry.path());
    }
    std::filesystem::remove(std::string(kWork) + "\\toolfile.tol");
}

// The caret at the end of a field hides no letter of it.
BOOL CALLBACK CaretToEnd(HWND hwnd, LPARAM) {
    if (gui::ClassOf(hwnd) == "Edit" && (GetWindowLongA(hwnd, GWL_STYLE) & ES_MULTILINE) == 0)
        SendMessageA(hwnd, EM_SETSEL, gui::TextOf(hwnd).size(),
                     static_cast<LPARAM>(gui::TextOf(hwnd).size()));
    return TRUE;
}

BOOL CALLBACK NothingToPaint(HWND hwnd, LPARAM) {
    return !IsWindowVisible(hwnd) || !GetUpdateRect(hwnd, nullptr, FALSE);
}

// Whether nothing is left to paint in a window and in all below it.
bool Painted(HWND window) {
    return NothingToPaint(window, 0) && EnumChildWindows(window, NothingToPaint, 0);
}

// The part of a window that is on the screen: the borders of a maximised frame are not.
RECT OnScreen(HWND window) {
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT place;
    GetWindowRect(window, &place);
    IntersectRect(&place, &place, &screen);
    return place;
}

class Guide {
public:
    Guide(std::string folder, std::string compiler)
        : folder_(std::move(folder)), compiler_(std::move(compiler)),
          program_(gui::BinFolder() + "\\zentrik.exe", kWork), app_(program_) {}

    void Run(const gui::SampleParts& source) {
        gui::SampleMaking(app_, source, kWork, [this](const std::string& step, HWND window) {
            Picture(step, window);
        }).All(compiler_);
        for (const gui::SystemParts& system : source.systems)
            IndexRules(system, source.tags.front().name);
        OpenProject();
        Debug();
        Overview();
        app_.Command(CM_COMPILE);
        if (!compiler_.empty())
            Execute();
        if (app_.Exit() != 0)
            gui::Fail("the program ended with an error");
    }

private:
    // The first picture of each step is the one that counts.
    void Picture(const std::string& step, HWND window) {
        if (!pictured_.insert(step).second)
            return;
        if (window == app_.Frame())
            app_.Command(CM_TILE_VERTICAL);
        EnumChildWindows(window, CaretToEnd, 0);
        for (HWND each : {app_.Frame(), window})
            RedrawWindow(each, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
        program_.WaitFor("the painting of " + step, [&] { return Painted(window); });
        const RECT place = OnScreen(window);
        AwaitStill(step, place);
        const std::string path = folder_ + "\\" + step + ".bmp";
        if (!gui::SaveScreenshot(path, place))
            gui::Fail("cannot write " + path);
        std::puts(path.c_str());
    }

    // What is painted reaches the screen some time later, in pieces.
    void AwaitStill(const std::string& step, const RECT& place) {
        std::vector<char> last;
        ULONGLONG since = 0;
        program_.WaitFor("a still picture of " + step, [&] {
            std::vector<char> now = gui::ScreenPixels(place);
            if (now != last) {
                last = std::move(now);
                since = GetTickCount64();
            }
            return GetTickCount64() - since >= kStill;
        });
    }

    // The rules came as texts: saving them in the rule editor makes their index.
    void IndexRules(const gui::SystemParts& system, const std::string& tags) {
        app_.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System", kSample + system.name + ".lse");
        app_.StartDoubleClick(gui::kSystem, 3);
        gui::RuleBox rules(app_);
        rules.CommandWithFile(RM_OPEN_TAGS, gui::kTagsTitle, kSample + tags + ".tag");
        rules.Command(RM_SAVE_FILE);
        SetWindowPos(rules.Window(), nullptr, 560, 300, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        rules.Select(0);
        program_.Send(rules.Edit(), WM_VSCROLL, SB_TOP);
        Picture("rules", app_.Frame());
        rules.Close();
        app_.Command(CM_CLOSE_SYSTEM);
    }

    void OpenProject() {
        app_.CommandWithFile(CM_OPEN_MORV, "Open MORV Project",
                             std::string(kSample) + "boiler.mrv");
    }

    void Debug() {
        gui::CommandWithCheck(app_, CM_DEBUG);
        Picture("findings", app_.Frame());
    }

    // The picture that shows Zentrik as a whole: project, system and findings side by side.
    void Overview() {
        app_.CommandWithFile(CM_OPEN_SYSTEM, "Open MORV System",
                             std::string(kSample) + "steam.lse");
        Picture("zentrik", app_.Frame());
        app_.Command(CM_CLOSE_SYSTEM);
    }

    // Compile does not wait for the compiler, and Execute not for the program.
    void Execute() {
        const gui::BuiltProgram built(program_, std::string(kWork) + "\\boiler", "boiler");
        built.AwaitMade();
        built.ForgetCompiler();
        gui::CommandWithCheck(app_, CM_EXECUTE);
        const HWND window = built.AwaitLine("Apiboiler starts");
        built.Type(window, "hold"); // so that one tick sees all values
        built.AwaitLine(": hold");
        built.Poke("boiler", {{"Pressure", "11.5"}, {"DrumLevel", "55"}, {"GasPressure", "120"}});
        built.Type(window, "tick");
        built.AwaitLine("HIGH_PRESSURE holds");
        built.Type(window, "why HIGH_PRESSURE");
        built.AwaitLine("Pressure = 11.5, poked");
        SetWindowPos(window, HWND_TOP, 120, 120, 620, 360, 0);
        Picture("executed", window);
        built.Close(window);
        built.AwaitMade(); // Execute has compiled once more
    }

    std::string folder_, compiler_;
    std::set<std::string> pictured_;
    gui::Program program_;
    gui::App app_;
};

} // namespace

int main(int count, char** words) {
    if (count < 2 || count > 3) {
        std::puts("guide <folder> [<compiler utility>]");
        return 2;
    }
    try {
        gui::MakeFolders(words[1]);
        const gui::SampleParts source =
            gui::PartsOfSample(gui::SourceFolder() + "\\examples\\boiler");
        PutSources();
        Guide(words[1], count == 3 ? words[2] : "").Run(source);
    } catch (const std::exception& failure) {
        std::printf("failed: %s\n", failure.what());
        return 1;
    }
    return 0;
}
