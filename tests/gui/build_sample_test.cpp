// The sample project made by hand: from its plain texts alone, through nothing but the program's
// dialogs, to the very bytes that the import of its text gives.
#include "shell/core/record_text.h"
#include "tests/core/sample.h"
#include "tests/gui/gui_test.h"
#include "tests/gui/sample_making.h"

#include <algorithm>
#include <filesystem>
#include <map>

namespace gui {

namespace {

using Contents = std::map<std::string, std::string>; // by the file's name

// The names of all files in a folder.
TextRows FilesIn(const std::string& folder) {
    TextRows names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

// Where two files differ first, for the message of a failure.
std::string Difference(const std::string& a, const std::string& b) {
    const auto at = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
    return std::to_string(a.size()) + " and " + std::to_string(b.size()) +
           " bytes, first difference at " + std::to_string(at);
}

// The records of a file in the order of their bytes.
TextRows SortedRecords(const std::string& bytes, std::size_t size) {
    TextRows records;
    for (std::size_t i = 0; i + size <= bytes.size(); i += size)
        records.push_back(bytes.substr(i, size));
    std::ranges::sort(records);
    return records;
}

class BuildSample : public GuiTest {
protected:
    void SetUp() override {
        source_ = PartsOfSample(SourceFolder() + "\\examples\\boiler");
        Run(Kind::Nt, [&](const WorkFolder& work) {
            ASSERT_EQ(zentrik_test::PutSample(work.Folder(), "", SourceFolder()), "");
            TakeRecords(work);
        });
    }

    // Keeps the record files and takes them out of the folder. The rule indexes stay: they come
    // with their rules files, as from another work folder.
    void TakeRecords(const WorkFolder& work) {
        const std::string folder = work.Path(source_.name);
        for (const std::string& name : FilesIn(folder)) {
            const std::string extension = name.substr(name.find('.'));
            if (extension == ".cpp" || extension == ".rul" || extension == ".siz")
                continue;
            written_[name] = FileContent(folder + "\\" + name);
            DeleteFileA((folder + "\\" + name).c_str());
        }
        tools_ = FileContent(work.Path("toolfile.tol"));
        DeleteFileA(work.Path("toolfile.tol").c_str());
    }

    SampleParts source_;
    Contents written_;
    std::string tools_;
};

TEST_F(BuildSample, EveryFileIsTheOneThatTheWritersGive) {
    App& app = Running();
    ASSERT_EQ(FilesIn(app.Path(source_.name)),
              (TextRows{"burner.rul", "burner.siz", "cycle.cpp", "main.cpp", "steam.rul",
                        "steam.siz", "units.cpp"}));
    SampleMaking(app, source_, app.Work().Folder()).All();
    for (const auto& [name, bytes] : written_) {
        const std::string made = FileContent(app.Path(source_.name + "\\" + name));
        if (name.ends_with(".tag")) {
            // The list of tags is sorted, so the file is too, whatever order they were typed in.
            EXPECT_NE(made, bytes);
            EXPECT_EQ(SortedRecords(made, kTagSize), SortedRecords(bytes, kTagSize));
        } else {
            EXPECT_TRUE(made == bytes) << name << ": " << Difference(made, bytes);
        }
    }
    EXPECT_TRUE(FileContent(app.Path("toolfile.tol")) == tools_);
    // And nothing besides: every working copy was moved to its place.
    EXPECT_EQ(FilesIn(app.Path(source_.name)).size(), written_.size() + 7);
    EXPECT_EQ(FilesIn(app.Path("temp")), TextRows{});
    EXPECT_EQ(FilesIn(app.Work().Folder()),
              (TextRows{source_.name, "morv", "temp", "toolfile.tol", "zentrik.exe"}));
    EXPECT_EQ(app.Exit(), 0u);
}

} // namespace

} // namespace gui
