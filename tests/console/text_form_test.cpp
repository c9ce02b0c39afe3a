#include "../core/sample.h"
#include "random_project.h"

#include "console/export.h"

namespace {

using console::Report;
using zentrik_test::Console;
using zentrik_test::ExpectStopped;
using zentrik_test::Ran;
using zentrik_test::RandomProject;

class TextForm : public Console {
protected:
    Ran Export(const std::string& project, const std::string& to) {
        return Run({"export", Host(project), temp.Path(to)});
    }

    Ran Import(const std::string& text, const std::vector<std::string>& more = {}) {
        std::vector<std::string> words = {"import", temp.Path("forms/" + text), "C:\\r"};
        words.insert(words.end(), more.begin(), more.end());
        return RunOnDrive(words);
    }

    // The words name paths as projects do, so the drive goes with them.
    Ran RunOnDrive(std::vector<std::string> words) {
        words.push_back("--drive");
        words.push_back("C=" + Host(""));
        return Run(words);
    }

    void PutForm(const std::string& name, const std::string& text) {
        std::filesystem::create_directories(temp.Path("forms"));
        temp.Put("forms/" + name, text);
    }

    std::map<std::string, std::string> FormFiles(const std::string& folder) const {
        std::map<std::string, std::string> files;
        const std::string below = temp.Path(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(below)) {
            const std::string name = entry.path().string().substr(below.size() + 1);
            if (entry.is_regular_file())
                files[name] = temp.Content(folder + "/" + name);
        }
        return files;
    }

    void PutProject(const std::map<std::string, std::string>& files) const {
        std::filesystem::remove_all(Host("r"));
        for (const auto& [name, content] : files) {
            std::string host = "r/p/" + name;
            std::replace(host.begin(), host.end(), '\\', '/');
            Put(host, content);
        }
    }
};

TEST_F(TextForm, HoldsTheSampleByteForByte) {
    const std::string source = std::string(SOURCE_FOLDER) + "/examples/boiler";
    ASSERT_EQ(zentrik_test::PutSample("C:\\zentrik"), "");
    const auto before = Files("zentrik/boiler");
    EXPECT_EQ(before.size(), 23u);
    ASSERT_EQ(Export("zentrik/boiler/boiler.mrv", "text").code, 0);
    std::filesystem::remove_all(Host("zentrik"));
    const Ran ran = RunOnDrive({"import", temp.Path("text"), "C:\\zentrik"});
    ASSERT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(Files("zentrik/boiler"), before);
    // What a person wrote says the same.
    std::filesystem::remove_all(Host("zentrik"));
    ASSERT_EQ(RunOnDrive({"import", source, "C:\\zentrik"}).code, 0);
    EXPECT_EQ(Files("zentrik/boiler"), before);
}

// The commands without their words, which take longer to be read than many of the projects.
TEST_F(TextForm, HoldsEveryProject) {
    std::ostringstream said;
    for (unsigned seed = 1; seed <= 1000 && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        const RandomProject project(seed, false);
        PutProject(project.dirty);
        std::filesystem::remove_all(temp.Path("text"));
        const Report report{said, said};
        const std::string form = console::ProjectPath(temp.Path("text"));
        ASSERT_EQ(console::Export("C:\\r\\p\\p.mrv", form, report), 0) << said.str();
        const auto text = FormFiles("text");
        std::filesystem::remove_all(Host("r"));
        console::ImportOptions options;
        options.source = form;
        options.work = "C:\\r";
        ASSERT_EQ(console::Import(options, report), 0) << said.str();
        std::map<std::string, std::string> with_slashes;
        for (const auto& [name, content] : project.clean) {
            std::string host = name;
            std::replace(host.begin(), host.end(), '\\', '/');
            with_slashes[host] = content;
        }
        const auto files = Files("r/p");
        for (const auto& [name, content] : with_slashes) {
            ASSERT_TRUE(files.contains(name)) << name;
            ASSERT_EQ(files.at(name), content) << name << "\n" << text.at("p.txt");
        }
        ASSERT_EQ(files.size(), with_slashes.size()) << text.at("p.txt");
        std::filesystem::remove_all(temp.Path("text"));
        ASSERT_EQ(console::Export("C:\\r\\p\\p.mrv", form, report), 0) << said.str();
        ASSERT_EQ(FormFiles("text"), text);
    }
    EXPECT_EQ(said.str(), "");
}

TEST_F(TextForm, RefusesByNameWhatItCannotHold) {
    std::string head(4096, '\0');
    const auto refused = [&](const std::string& bytes, const std::string& what) {
        Put("r/p/p.mrv", bytes);
        ExpectStopped(Export("r/p/p.mrv", "text"), what);
        EXPECT_FALSE(std::filesystem::exists(temp.Path("text")));
    };
    refused("", "p.mrv: damaged");
    refused(head + "more", "p.mrv: damaged: bytes stand behind its last record");
    std::string full = head;
    full.replace(0, 255, 255, 'x');
    refused(full, "p.mrv: a text fills its field and has no end");
    std::string other = head;
    other.replace(0, 15, "c:\\R\\P\\main.cpp");
    refused(other, "the path spells the project's folder in another way");
    std::string twice = head;
    twice.replace(3570, 10, "C:\\r\\p\\a.b");
    twice.replace(0, 10, "C:\\r\\p\\a.b");
    Put("r/p/a.b", std::string(255, '\0'));
    refused(twice, "the file is named as two kinds of file");
    std::string text = head;
    text.replace(0, 12, "C:\\r\\p\\p.txt");
    Put("r/p/p.txt", "x");
    refused(text, "p.txt: its name is that of the text form");
    ExpectStopped(Export("r/p/none.mrv", "text"), "none.mrv: No such file");
}

TEST_F(TextForm, SaysWhatIsWrongWithATextAndWhere) {
    const auto wrong = [&](const std::string& text, const std::string& what) {
        PutForm("p.txt", text);
        ExpectStopped(Import("p.txt"), what);
        EXPECT_FALSE(std::filesystem::exists(Host("r")));
    };
    wrong("", "no project");
    wrong("[project p]\nmian = m.cpp\n", "line 2: no such setting: mian");
    wrong("[project p]\nmain = m.cpp\n", "cannot read m.cpp");
    wrong("[project p]\nmain = ..\\m.cpp\n", "line 2: not a file below the project's folder");
    wrong("[project p]\nmain = C:\\m.cpp\n", "line 2: not a file below the project's folder");
    wrong("[project ..]\n", "line 1: no name for files");
    wrong("[project p]\nfolder = ..\n", "line 2: no name for a folder");
    wrong("[project p]\n[facts a]\n", "line 2: nothing in the project is named so: facts a");
    wrong("[project p]\n[system a]\n[facts a]\nF|T\n", "line 4: a row here has 8 fields");
    wrong("[project p]\n[system a]\n[facts a]\nF|T|d|u|0 1 x|1 2 3 4 5|1\n",
          "line 4: not a number: x");
    wrong("[project p]\n[system a]\n[facts a]\nF||d|u|0 1 1|1 2 3 4 5|1\n",
          "line 4: an empty field is \"\"");
    wrong("[project p]\n[system a]\n[initial a]\nF|1|FULL\n", "no such fact: F");
    wrong("[project p]\n[results r]\n" + std::string(50, 'a') + "\n", "line 3: too long");
    wrong("[project p]\n[results r]\n\"open\n", "line 3: no name");
    wrong("[project p]\n[results r]\n\xe2\x82\xad\n", "line 3: no name");
    wrong("[project p]\n[system a]\n[system a]\n", "line 3: the section is there twice");
    wrong("[project p]\nresult\n", "line 2: no row belongs here");
    wrong("[thing p]\n", "line 1: no such kind of section: thing");
    wrong("row\n", "line 1: no row belongs here");
    wrong("[project p]\nscenario = a.scenario\n", "cannot read a.scenario");
    wrong("[project p]\nscenario = a.txt\n", "line 2: no name for scenarios: a.txt");
    wrong("[project p]\nscenario = b\\a.scenario\n", "line 2: no name for scenarios");
    wrong("[project p]\n" + std::string(9, ' ') +
              "\n[system a]\n[system b]\n[system c]\n"
              "[system d]\n[system e]\n[system f]\n[system g]\n[system h]\n[system i]\n",
          "too many systems");
}

TEST_F(TextForm, IsReadWithUnnumberedRulesOnlyWithTheirIndex) {
    PutForm("p.txt", "[project p]\n[system a]\nrules = a.rul\n");
    temp.Put("forms/a.rul", "Rule 2\nEndRule\n");
    ExpectStopped(Import("p.txt"), "the rules are not numbered and closed");
    PutForm("p.txt", "[project p]\n[system a]\nrules = a.rul\n[index a]\nRule 2 | 17 | 0 | 0\n");
    EXPECT_EQ(Import("p.txt").code, 0);
    EXPECT_EQ(Content("r/p/a.rul"), "Rule 2\r\nEndRule\r\n");
    EXPECT_EQ(Content("r/p/a.siz").size(), 267u);
}

// Whatever their line ends, and also when one is a source of the project as well.
TEST_F(TextForm, HoldsTheScenariosBesideTheProject) {
    PutForm("p.txt", "[project p]\nmain = b.scenario\nscenario = a\nscenario = b\n");
    const std::string odd("scenario A\ntick\r\n\n\0tick", 24);
    temp.Put("forms/a.scenario", odd);
    temp.Put("forms/b.scenario", "scenario B\n");
    const Ran ran = Import("p.txt");
    EXPECT_EQ(ran.code, 0) << ran.err;
    EXPECT_EQ(Content("r/p/a.scenario"), odd);
    EXPECT_EQ(Content("r/p/b.scenario"), "scenario B\r\n");
    ASSERT_EQ(Export("r/p/p.mrv", "text").code, 0);
    const auto text = FormFiles("text");
    EXPECT_EQ(text.at("a.scenario"), odd);
    EXPECT_NE(text.at("p.txt").find("\nscenario = a.scenario\nscenario = b.scenario\n"),
              std::string::npos);
    const auto before = Files("r");
    std::filesystem::remove_all(Host("r"));
    ASSERT_EQ(RunOnDrive({"import", temp.Path("text"), "C:\\r"}).code, 0);
    EXPECT_EQ(Files("r"), before);
}

TEST_F(TextForm, IsReadBehindTheMarkOfUtf8) {
    PutForm("p.txt", "\xef\xbb\xbf[project p]\nmian = m.cpp\n");
    ExpectStopped(Import("p.txt"), "line 2: no such setting: mian");
    PutForm("p.txt", "\xef\xbb\xbf[project p]\n");
    EXPECT_EQ(Import("p.txt").code, 0);
}

// Its sources have other line ends than the project needs.
TEST_F(TextForm, IsNotWrittenOverTheProject) {
    ASSERT_EQ(zentrik_test::PutSample("C:\\zentrik"), "");
    const auto before = Files("zentrik");
    const std::string stops = "is of the project itself";
    ExpectStopped(Export("zentrik/boiler/boiler.mrv", "drive_c/zentrik/boiler"), stops);
    std::filesystem::create_directory_symlink(Host("zentrik/boiler"), temp.Path("link"));
    ExpectStopped(Export("zentrik/boiler/boiler.mrv", "link"), stops);
    EXPECT_EQ(Files("zentrik"), before);
    EXPECT_EQ(Export("zentrik/boiler/boiler.mrv", "drive_c/zentrik").code, 0);
}

TEST_F(TextForm, RefusesAScenarioWhoseNameItLacks) {
    PutForm("p.txt", "[project p]\n");
    ASSERT_EQ(Import("p.txt").code, 0);
    Put("r/p/\xce\x94.pdf", "");
    EXPECT_EQ(Export("r/p/p.mrv", "text").code, 0);
    Put("r/p/\xce\x94.scenario", "scenario A\n");
    ExpectStopped(Export("r/p/p.mrv", "text"), "/\xce\x94.scenario: projects cannot name it");
    ExpectStopped(Run({"test", Host("r/p/p.mrv")}), "/\xce\x94.scenario: projects cannot name it");
}

// The paths inside have '\' alone, and begin at a root.
TEST_F(TextForm, TakesAWorkFolderWithSlashes) {
    PutForm("p.txt", "[project p]\n");
    const std::string text = temp.Path("forms/p.txt");
    EXPECT_EQ(RunOnDrive({"import", text, "C:/r/"}).code, 0);
    EXPECT_NE(Content("r/p/p.mrv").find("C:\\r\\p\\p.aux"), std::string::npos);
    ExpectStopped(RunOnDrive({"import", text, "C:r"}), "C:r: a folder's path begins at the root");
}

TEST_F(TextForm, ReplacesAProjectOnlyWhenTold) {
    PutForm("p.txt", "[project p]\nhistory = 1\n");
    EXPECT_EQ(Import("p.txt").code, 0);
    const auto before = Files("r");
    PutForm("p.txt", "[project p]\nhistory = 2\n");
    ExpectStopped(Import("p.txt"), "it is there already");
    EXPECT_EQ(Files("r"), before);
    EXPECT_EQ(Import("p.txt", {"--replace"}).code, 0);
    EXPECT_NE(Files("r"), before);
}

TEST_F(TextForm, LeavesNothingHalfWritten) {
    PutForm("p.txt", "[project p]\n[results a]\nA\n[results b]\nB\n");
    ASSERT_EQ(Import("p.txt").code, 0);
    const auto before = Files("r");
    PutForm("p.txt", "[project p]\n[results a]\nC\n[results b]\nD\n");
    files::FailWritesAfter(160);
    const Ran ran = Import("p.txt", {"--replace"});
    files::FailWritesAfter(-1);
    ExpectStopped(ran, "No space left");
    EXPECT_EQ(Files("r"), before);
}

TEST_F(TextForm, NeedsAWorkFolderWithoutADot) {
    PutForm("p.txt", "[project p]\n");
    ExpectStopped(RunOnDrive({"import", temp.Path("forms/p.txt"), "C:\\my.work"}),
                  "a work folder has no '.'");
}

} // namespace
