// Rules that hold for the sources as a whole.
#include "core_test.h"

#include <map>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

const fs::path kSources = SOURCE_FOLDER;

std::string ReadText(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

// The identifiers of shell/services/ZENTRIK.h with their values.
std::map<std::string, int> Identifiers() {
    std::map<std::string, int> identifiers;
    for (const std::string& line : LinesOf(ReadText(kSources / "shell/services/ZENTRIK.h"))) {
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
    for (const std::string& line : LinesOf(ReadText(path)))
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
        for (const std::string& line : LinesOf(ReadText(path))) {
            const std::string id = IdentifierOn(line);
            named += identifiers.contains(id);
            EXPECT_TRUE(identifiers.contains(id) || others.contains(id))
                << id << " in " << path.filename();
        }
    EXPECT_GE(named, 52u);
}

// The sources below the folders of the program, with '/' in their names.
std::vector<std::string> Sources() {
    std::vector<std::string> sources;
    for (const char* folder :
         {"shell", "project", "system", "resources", "build", "language", "morv", "console"})
        for (const auto& entry : fs::recursive_directory_iterator(kSources / folder))
            if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h")
                sources.push_back(fs::relative(entry.path(), kSources).generic_string());
    return sources;
}

bool IsIn(const std::string& file, const std::string& folder) {
    return file.starts_with(folder + "/");
}

bool IsCore(const std::string& file) {
    return file.find("/core/") != std::string::npos;
}

// Right in shell/: the frame, its commands, toolbar and window procedures.
bool IsFrame(const std::string& file) {
    return fs::path(file).parent_path() == "shell";
}

// What `file` may not include although it does; `may` says what it may.
template <class May> void ExpectIncludes(const std::string& file, May may) {
    for (const std::string& name : Includes(kSources / file))
        EXPECT_TRUE(may(name)) << file << " includes " << name;
}

TEST(RepoRules, TheCoreIncludesTheCoreOnlyAndNoWindowsHeader) {
    std::size_t seen = 0;
    for (const std::string& file : Sources()) {
        if (!IsCore(file))
            continue;
        ++seen;
        ExpectIncludes(file, IsCore);
        EXPECT_EQ(ReadText(kSources / file).find("#include <windows.h>"), std::string::npos)
            << file;
    }
    EXPECT_GE(seen, 50u);
}

TEST(RepoRules, TheServicesIncludeNoSubject) {
    std::size_t seen = 0;
    for (const std::string& file : Sources()) {
        if (!IsIn(file, "shell/services") && !IsIn(file, "shell/platform"))
            continue;
        ++seen;
        ExpectIncludes(file, [](const std::string& name) {
            return IsIn(name, "shell/services") || IsIn(name, "shell/core");
        });
    }
    EXPECT_GE(seen, 30u);
}

TEST(RepoRules, NothingIncludesTheFrame) {
    std::size_t seen = 0;
    for (const std::string& file : Sources()) {
        if (IsFrame(file)) {
            ++seen;
            continue;
        }
        ExpectIncludes(file, [](const std::string& name) { return !IsFrame(name); });
    }
    EXPECT_GE(seen, 7u);
}

TEST(RepoRules, TheLanguageIncludesNothingElse) {
    std::size_t seen = 0;
    for (const std::string& file : Sources()) {
        if (!IsIn(file, "language"))
            continue;
        ++seen;
        ExpectIncludes(file, [](const std::string& name) { return IsIn(name, "language"); });
    }
    EXPECT_GE(seen, 4u);
}

// What the compiler utility can do for other programs.
bool IsUtility(const std::string& name) {
    return name == "morv/command_line.h" || name == "morv/run_tool.h" ||
           name == "morv/runtime_files.h" || name.starts_with("morv/zkcc_");
}

TEST(RepoRules, TheConsoleIncludesTheCoreTheLanguageAndTheUtilityOnly) {
    std::size_t seen = 0;
    for (const std::string& file : Sources()) {
        if (!IsIn(file, "console"))
            continue;
        ++seen;
        const bool form = IsIn(file, "console/form");
        ExpectIncludes(file, [form](const std::string& name) {
            if (form)
                return IsIn(name, "console/form") || IsCore(name) || name == "morv/runtime_files.h";
            return IsIn(name, "console") || IsIn(name, "language") || IsCore(name) ||
                   IsUtility(name);
        });
    }
    EXPECT_GE(seen, 20u);
}

// The project's files by what they include.
using Graph = std::map<std::string, std::vector<std::string>>;

// Walks the includes from `file`; `path` holds the files on the way to it. Returns a circle, or
// nothing when there is none.
std::vector<std::string> Circle(const Graph& graph, const std::string& file,
                                std::vector<std::string>& path, std::set<std::string>& done) {
    if (done.contains(file))
        return {};
    const auto before = std::find(path.begin(), path.end(), file);
    if (before != path.end())
        return {before, path.end()};
    path.push_back(file);
    if (const auto found = graph.find(file); found != graph.end())
        for (const std::string& name : found->second)
            if (auto circle = Circle(graph, name, path, done); !circle.empty())
                return circle;
    path.pop_back();
    done.insert(file);
    return {};
}

std::vector<std::string> AnyCircle(const Graph& graph) {
    std::set<std::string> done;
    for (const auto& [file, includes] : graph) {
        std::vector<std::string> path;
        if (auto circle = Circle(graph, file, path, done); !circle.empty())
            return circle;
    }
    return {};
}

TEST(RepoRules, TheCircleSearchSeesCircles) {
    EXPECT_EQ(AnyCircle({{"a", {"b", "c"}}, {"b", {"c"}}}), std::vector<std::string>{});
    EXPECT_EQ(AnyCircle({{"a", {"b"}}, {"b", {"c"}}, {"c", {"b"}}}).size(), 2u);
    EXPECT_EQ(AnyCircle({{"a", {"a"}}}).size(), 1u);
}

TEST(RepoRules, NoFileIncludesItselfByWayOfOthers) {
    Graph graph;
    for (const std::string& file : Sources())
        for (const std::string& name : Includes(kSources / file)) {
            // The runtime is compiled on its own: its files name each other without the folder.
            const std::string beside = (fs::path(file).parent_path() / name).generic_string();
            graph[file].push_back(fs::exists(kSources / beside) ? beside : name);
        }
    const std::vector<std::string> circle = AnyCircle(graph);
    EXPECT_TRUE(circle.empty()) << testing::PrintToString(circle);
}

// The paths in back-quotes of a page: what has a '/' and nothing that a path of this repository
// does not have. What lies in out/ is built and may be missing.
std::vector<std::string> PathsNamedIn(const std::string& page) {
    static const std::regex quoted(R"(`(?:\./)?([\w.][\w./]*)`)");
    std::vector<std::string> paths;
    for (std::sregex_iterator found(page.begin(), page.end(), quoted), end; found != end; ++found) {
        const std::string path = (*found)[1];
        const bool here = found->str().starts_with("`./") || path.find('/') != path.npos;
        if (here && !path.starts_with("out/"))
            paths.push_back(path);
    }
    return paths;
}

TEST(RepoRules, ThePathSearchSeesPaths) {
    EXPECT_EQ(PathsNamedIn("`./run` and `a/b.cpp`, `c/`; `d`, `//`, `C:\\e`, `out/f`, `x / y`"),
              (std::vector<std::string>{"run", "a/b.cpp", "c/"}));
}

TEST(RepoRules, ThePagesNamePathsThatExist) {
    std::vector<fs::path> pages = FilesIn("docs", {".md"});
    pages.push_back(kSources / "README.md");
    std::size_t seen = 0;
    for (const fs::path& page : pages)
        for (const std::string& path : PathsNamedIn(ReadText(page))) {
            ++seen;
            EXPECT_TRUE(fs::exists(kSources / path)) << page.filename() << " names " << path;
        }
    EXPECT_GE(seen, 100u);
}

} // namespace
