// The pages that the program opens are chapters of the guide, and every dialog has one.
#include "core_test.h"
#include "shell/core/guide_pages.h"

#include <cctype>
#include <regex>
#include <set>

namespace {

namespace fs = std::filesystem;

const fs::path kTop = SOURCE_FOLDER;

std::string PageText(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// What a regular expression's first group takes of a text, each time it matches.
std::set<std::string> Found(const std::string& text, const char* expression) {
    std::set<std::string> found;
    const std::regex pattern(expression);
    for (std::sregex_iterator i(text.begin(), text.end(), pattern), end; i != end; ++i)
        found.insert((*i)[1]);
    return found;
}

// The name that scripts/make_help gives to a chapter's page.
std::string PageName(const std::string& heading) {
    std::string name;
    for (char c : std::regex_replace(heading, std::regex("^[0-9]+\\. "), ""))
        if (c == ' ')
            name += '-';
        else if (std::isalnum(static_cast<unsigned char>(c)) || c == '-')
            name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return name;
}

std::set<std::string> Chapters() {
    std::set<std::string> pages{std::string(kGuideContents), std::string(kGuideIndex)};
    for (const std::string& heading :
         Found(PageText(kTop / "docs/user-guide.md"), "\n## ([^\r\n]*)"))
        pages.insert(PageName(heading));
    return pages;
}

// The names of the dialogs in the resources.
std::set<std::string> Dialogs() {
    std::set<std::string> dialogs;
    for (const auto& entry : fs::directory_iterator(kTop / "res"))
        if (entry.path().extension() == ".rc")
            dialogs.merge(Found(PageText(entry.path()), "(\\w+) DIALOG"));
    return dialogs;
}

TEST(GuidePages, EveryDialogHasAChapter) {
    const std::set<std::string> chapters = Chapters();
    const std::set<std::string> dialogs = Dialogs();
    EXPECT_EQ(dialogs.size(), 15u);
    for (const std::string& dialog : dialogs)
        EXPECT_TRUE(chapters.contains(std::string(GuidePageOf(dialog))))
            << dialog << ": " << GuidePageOf(dialog);
}

TEST(GuidePages, TheToolsHaveAChapter) {
    EXPECT_TRUE(Chapters().contains(std::string(kGuideTools)));
}

TEST(GuidePages, WhatIsNoDialogHasNone) {
    EXPECT_EQ(GuidePageOf(""), "");
    EXPECT_EQ(GuidePageOf("tool_box"), "");
}

} // namespace
