// Rules that hold for the sources as a whole.
#include "core_test.h"

#include <map>
#include <set>

namespace {

namespace fs = std::filesystem;

const fs::path kSources = SOURCE_FOLDER;

std::string ReadText(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The identifiers of shell/ZENTRIK.h with their values.
std::map<std::string, int> Identifiers() {
    std::map<std::string, int> identifiers;
    for (const std::string& line : Lines(ReadText(kSources / "shell/ZENTRIK.h"))) {
        std::istringstream words(line);
        std::string define;
        std::string name;
        int value;
        if (words >> define >> name >> value && define == "#define")
            identifiers[name] = value;
    }
    return identifiers;
}

std::vector<fs::path> FilesIn(const char* folder, const std::set<std::string>& extensions) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(kSources / folder))
        if (extensions.contains(entry.path().extension().string()))
            files.push_back(entry.path());
    return files;
}

// The project's own headers that a file includes.
std::vector<std::string> Includes(const fs::path& path) {
    const std::string include = "#include \"";
    std::vector<std::string> names;
    for (const std::string& line : Lines(ReadText(path)))
        if (line.starts_with(include))
            names.push_back(
                line.substr(include.size(), line.find('"', include.size()) - include.size()));
    return names;
}

TEST(RepoRules, EveryCommandHasOneHandler) {
    const std::string table = ReadText(kSources / "shell/commands.cpp");
    std::set<int> numbers;
    for (const auto& [name, number] : Identifiers()) {
        if (!name.starts_with("CM_") || number < 100 || number > 151)
            continue;
        EXPECT_TRUE(numbers.insert(number).second) << name << " shares its number";
        const std::size_t entry = table.find("{" + name + ",");
        EXPECT_NE(entry, std::string::npos) << name;
        EXPECT_EQ(entry, table.rfind("{" + name + ",")) << name;
    }
    EXPECT_EQ(numbers.size(), 52u);
}

// A line of a resource script with its quoted texts emptied: they may hold commas and keywords.
std::string WithoutTexts(const std::string& line) {
    std::string plain;
    bool quoted = false;
    for (char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (!quoted)
            plain += c;
    }
    return plain;
}

// Where a control or menu statement has its identifier; -1 for other statements.
int IdentifierPosition(const std::string& keyword) {
    static const std::set<std::string> first{"EDITTEXT", "LISTBOX", "COMBOBOX", "SCROLLBAR"};
    static const std::set<std::string> second{
        "LTEXT",      "CTEXT",        "RTEXT",           "ICON",        "GROUPBOX",
        "PUSHBUTTON", "CHECKBOX",     "DEFPUSHBUTTON",   "RADIOBUTTON", "CONTROL",
        "AUTO3STATE", "AUTOCHECKBOX", "AUTORADIOBUTTON", "MENUITEM"};
    return first.contains(keyword) ? 0 : second.contains(keyword) ? 1 : -1;
}

// The identifier of the control or menu item on this line; empty without one.
std::string IdentifierOn(const std::string& line) {
    std::istringstream words(WithoutTexts(line));
    std::string keyword;
    words >> keyword;
    const int position = IdentifierPosition(keyword);
    std::string value;
    for (int i = 0; i <= position; ++i)
        if (!std::getline(words, value, ','))
            return {};
    std::string id;
    std::istringstream(value) >> id;
    return id;
}

TEST(RepoRules, TheResourceScanSeesControlsAndMenuItems) {
    EXPECT_EQ(IdentifierOn("    LTEXT \"a, b\", 77, 1, 2, 3, 4"), "77");
    EXPECT_EQ(IdentifierOn("    EDITTEXT SOME_EDIT, 1, 2, 3, 4"), "SOME_EDIT");
    EXPECT_EQ(IdentifierOn("    MENUITEM \"New\", CM_NEW"), "CM_NEW");
    EXPECT_EQ(IdentifierOn("    MENUITEM SEPARATOR"), "");
    EXPECT_EQ(IdentifierOn("CAPTION \"a, b\""), "");
}

TEST(RepoRules, EveryIdentifierInTheResourcesIsNamed) {
    const std::map<std::string, int> identifiers = Identifiers();
    const std::set<std::string> others{"", "IDOK", "IDCANCEL", "IDC_STATIC", "-1"};
    std::size_t named = 0;
    for (const fs::path& path : FilesIn("res", {".rc"}))
        for (const std::string& line : Lines(ReadText(path))) {
            const std::string id = IdentifierOn(line);
            named += identifiers.contains(id);
            EXPECT_TRUE(identifiers.contains(id) || others.contains(id))
                << id << " in " << path.filename();
        }
    EXPECT_GE(named, 52u);
}

// Adds `file` and all of the project's files that it includes.
void AddWithIncludes(const std::string& file, std::set<std::string>& files) {
    if (!files.insert(file).second)
        return;
    ASSERT_TRUE(fs::exists(kSources / file)) << file;
    for (const std::string& name : Includes(kSources / file))
        AddWithIncludes(name, files);
}

TEST(RepoRules, TheCoreIncludesNoWindowsHeader) {
    const std::string build = ReadText(kSources / "CMakeLists.txt");
    const std::string start = "zentrik_core STATIC";
    const std::size_t from = build.find(start);
    ASSERT_NE(from, std::string::npos);
    const std::size_t after = from + start.size();
    std::istringstream names(build.substr(after, build.find(')', after) - after));
    std::set<std::string> files;
    for (std::string name; names >> name;)
        AddWithIncludes(name, files);
    EXPECT_TRUE(files.contains("shell/files.h"));
    for (const std::string& file : files)
        EXPECT_EQ(ReadText(kSources / file).find("#include <windows.h>"), std::string::npos)
            << file;
}

TEST(RepoRules, NothingIncludesTheFrame) {
    const std::set<std::string> frame{"ZENTRIK", "commands", "mdi_windows", "toolbar"};
    const std::set<std::string> headers{"shell/commands.h", "shell/mdi_windows.h",
                                        "shell/toolbar.h"};
    for (const char* folder : {"shell", "project", "system", "resources", "build"})
        for (const fs::path& path : FilesIn(folder, {".cpp", ".h"})) {
            if (std::string(folder) == "shell" && frame.contains(path.stem().string()))
                continue;
            for (const std::string& name : Includes(path))
                EXPECT_FALSE(headers.contains(name)) << path;
        }
}

} // namespace
