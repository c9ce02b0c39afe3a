// The sample's plant through a day: its rules, with the console program around them, put the
// actuators where they belong, and keep them there.
#include "morv/translate.h"
#include "shell/core/files.h"
#include "tests/core/core_test.h"
#include "tests/morv/generated.h"

#include <cstdlib>
#include <fstream>
#include <map>

namespace {

namespace fs = std::filesystem;
using zentrik_test::TempFolder;

class Plant : public testing::Test {
protected:
    // The program is made once, for all tests.
    static void SetUpTestSuite() {
        folder_ = new TempFolder;
        fs::create_directory(folder_->Path("c"));
        files::SetDriveRoot(folder_->Path(""));
        morv_test::GenerateSample("C:\\zentrik", "");
        files::SetDriveRoot("");
        Make();
    }

    static void TearDownTestSuite() {
        delete folder_;
        folder_ = nullptr;
    }

    void Poke(const std::string& item, const std::string& value) {
        commands_ += "poke " + item + " " + value + "\n";
    }

    void Tick(int count = 1) { commands_ += "tick " + std::to_string(count) + "\n"; }

    // What the rules told the operator by now, all of it.
    void ExpectTold(const std::vector<std::string>& texts) { told_ = texts; }

    // At this time of the day these facts and results are as told, "55 FULL" or only "55".
    void Expect(const std::string& time, const std::map<std::string, std::string>& states) {
        for (const auto& [name, state] : states) {
            commands_ += "show " + name + "\n";
            expected_.push_back({time, name, state});
        }
    }

    // Runs the program with all that was said.
    void Run() {
        folder_->Put("commands", commands_);
        const std::string command = "'" + folder_->Path("program") + "' <'" +
                                    folder_->Path("commands") + "' >'" + folder_->Path("said") +
                                    "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << folder_->Content("said");
        if (!told_.empty()) {
            EXPECT_EQ(Boxes(folder_->Content("said")), told_);
        }
        std::istringstream said(folder_->Content("said"));
        for (const Expected& expected : expected_) {
            std::string line;
            while (std::getline(said, line) && !line.starts_with(expected.name + " ")) {
            }
            EXPECT_TRUE((line + " ").starts_with(expected.name + " " + expected.state + " "))
                << "at " << expected.time << ": " << line << ", not " << expected.state;
        }
    }

    void BurnerOff() {
        for (const auto& [item, value] : {std::pair{"BurnerState", "0"},
                                          {"FlameSignal", "0"},
                                          {"GasPressure", "120"},
                                          {"Pressure", "5"},
                                          {"DrumLevel", "50"},
                                          {"SteamFlow", "2"},
                                          {"FeedFlow", "2"}})
            Poke(item, value);
        Tick(2); // in the first one the level jumps from nothing
    }

    void BurnerOn() {
        for (const auto& [item, value] : {std::pair{"BurnerState", "1"},
                                          {"FlameSignal", "80"},
                                          {"Oxygen", "3"},
                                          {"Pressure", "8,5"},
                                          {"SteamFlow", "12"},
                                          {"FeedFlow", "12"}})
            Poke(item, value);
        Tick();
    }

private:
    static std::vector<std::string> Boxes(const std::string& text) {
        std::vector<std::string> boxes;
        std::istringstream said(text);
        for (std::string line; std::getline(said, line);)
            if (line.starts_with("> "))
                boxes.push_back(line.substr(2));
        return boxes;
    }

    // All of the runtime that needs no Windows, and the project's own files.
    static void Make() {
        const fs::path work = folder_->Path("c/zentrik"), made = folder_->Path("made");
        fs::create_directory(made);
        const std::string rules = Content(work / "boiler/boilerR.cpp");
        const morv::Translation translation =
            morv::Translate(rules, "boilerR.cpp", Content(work / "boiler/boilerR.h"));
        ASSERT_EQ(translation.errors, std::vector<std::string>{});
        std::string line =
            "cd '" + made.string() + "' && g++ -std=c++17 -O0 -Wall -Werror " +
            "-fsanitize=address,undefined -fno-sanitize-recover=all -I../c/zentrik/boiler "
            "-I../c/zentrik/morv -I'" SOURCE_FOLDER "/tests/morv/host' -o ../program "
            "../c/zentrik/boiler/ddecom.cpp";
        for (const auto* pieces : {&translation.headers, &translation.sources})
            for (const morv::Piece& piece : *pieces)
                std::ofstream(made / piece.name, std::ios::binary) << piece.text;
        for (const morv::Piece& piece : translation.sources)
            line += " " + piece.name;
        for (const char* name : {"runtime_engine.cpp", "console_main.cpp"})
            line += std::string(" ../c/zentrik/morv/") + name;
        ASSERT_EQ(std::system((line + " >../said 2>&1").c_str()), 0) << folder_->Content("said");
    }

    static std::string Content(const fs::path& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    struct Expected {
        std::string time, name, state;
    };

    static inline TempFolder* folder_ = nullptr;
    std::string commands_;
    std::vector<std::string> told_;
    std::vector<Expected> expected_;
};

TEST_F(Plant, ThroughADay) {
    Tick(3);
    BurnerOff();
    Expect("5:00, cold", {{"GasValve", "0"},
                          {"AirDamper", "60"},
                          {"FeedValve", "50"},
                          {"ReliefValve", "0"},
                          {"LOW_PRESSURE", "1"},
                          {"FLAME_STABLE", "0"},
                          {"FLAME_LOST", "0"}});
    BurnerOn();
    Expect("6:00, fired",
           {{"GasValve", "55"}, {"AirDamper", "60"}, {"FLAME_STABLE", "1"}, {"LOW_PRESSURE", "0"}});
    Poke("Pressure", "11");
    Tick();
    Expect("12:00, the load drops", {{"ReliefValve", "25"}, {"HIGH_PRESSURE", "1"}});
    Poke("Pressure", "9");
    Tick(2);
    Expect("12:05, relieved", {{"ReliefValve", "25"}, {"HIGH_PRESSURE", "1"}});
    Poke("Pressure", "7,9");
    Tick();
    Expect("12:10, back", {{"ReliefValve", "0"}, {"HIGH_PRESSURE", "0"}, {"LOW_PRESSURE", "0"}});
    Poke("BurnerState", "0");
    Poke("FlameSignal", "0");
    Tick();
    Expect("22:00, off", {{"GasValve", "0"}, {"FLAME_STABLE", "0"}, {"FLAME_LOST", "0"}});
    Poke("RunSeconds", "360000");
    Tick();
    Expect("a hundred hours", {{"SERVICE_DUE", "1 NORMAL"}});
    ExpectTold(
        {"Waiting for the first reading of the plant", "Steam pressure is high", "Service is due"});
    Run();
}

TEST_F(Plant, TheDamperKeepsEveryStep) {
    BurnerOff();
    BurnerOn();
    Poke("Oxygen", "8");
    Tick(4);
    Expect("too much air", {{"AirDamper", "40"}, {"LEAN_MIXTURE", "1"}});
    Poke("Oxygen", "3");
    Tick(5);
    Expect("the right air", {{"AirDamper", "40"}, {"LEAN_MIXTURE", "0"}});
    Poke("Oxygen", "0");
    Tick(2);
    Expect("too little air", {{"AirDamper", "50"}, {"RICH_MIXTURE", "1"}});
    Tick(20);
    Expect("no further than it goes", {{"AirDamper", "100"}});
    Poke("BurnerState", "0");
    Tick(3);
    Expect("nothing burns", {{"AirDamper", "100"}, {"RICH_MIXTURE", "0"}, {"LEAN_MIXTURE", "0"}});
    Run();
}

TEST_F(Plant, ALostFlameShutsTheGasUntilTheBurnerWasTurnedOff) {
    BurnerOff();
    BurnerOn();
    Poke("FlameSignal", "0");
    Tick();
    Expect("lost",
           {{"GasValve", "0"}, {"AirDamper", "100"}, {"FLAME_LOST", "1"}, {"FLAME_STABLE", "0"}});
    Poke("FlameSignal", "80");
    Tick(3);
    Expect("seen again", {{"GasValve", "0"}, {"FLAME_LOST", "1"}, {"FLAME_STABLE", "0"}});
    Poke("BurnerState", "0");
    Tick();
    Expect("turned off", {{"GasValve", "0"}, {"FLAME_LOST", "0"}, {"FLAME_STABLE", "0"}});
    Poke("BurnerState", "1");
    Tick();
    Expect("lit again", {{"GasValve", "55"}, {"FLAME_LOST", "0"}, {"FLAME_STABLE", "1"}});
    Run();
}

TEST_F(Plant, TheFeedFollowsTheLevelAndADryDrumIsRelieved) {
    BurnerOff();
    BurnerOn();
    Poke("DrumLevel", "30");
    Tick();
    Expect("low", {{"FeedValve", "80"}, {"LOW_LEVEL", "1"}, {"ReliefValve", "0"}});
    Poke("Pressure", "11");
    Tick();
    Expect("low under pressure", {{"FeedValve", "80"}, {"ReliefValve", "100"}});
    Poke("DrumLevel", "70");
    Poke("Pressure", "7");
    Tick();
    Expect("high",
           {{"FeedValve", "20"}, {"HIGH_LEVEL", "1"}, {"LOW_LEVEL", "0"}, {"ReliefValve", "0"}});
    Poke("DrumLevel", "55");
    Tick(2);
    Expect("normal", {{"FeedValve", "50"}, {"HIGH_LEVEL", "0"}, {"LOW_LEVEL", "0"}});
    Run();
}

} // namespace
