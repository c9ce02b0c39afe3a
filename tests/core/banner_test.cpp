#include "build_disk.h"

#include "build/core/banner.h"

namespace {

using zentrik_test::Disk;

// What `write` writes to a file.
template <class Write> std::string Written(Write write) {
    const Disk disk;
    OutputFile han;
    EXPECT_TRUE(han.Create(disk.Path("out.txt").c_str()));
    write(han);
    EXPECT_TRUE(han.Close());
    return disk.Content("out.txt");
}

std::string Centred(const std::string& text) {
    return Written([&](OutputFile& han) { MCent(han, text); });
}

TEST(MCent, CentresAShortTextInFiftyCharacters) {
    EXPECT_EQ(Centred("ab"), "//" + std::string(22, ' ') + "ab" + std::string(22, ' ') + "//\r\n");
    // An odd blank goes to the right.
    EXPECT_EQ(Centred("abc"),
              "//" + std::string(21, ' ') + "abc" + std::string(22, ' ') + "//\r\n");
    EXPECT_EQ(Centred(""), "//" + std::string(46, ' ') + "//\r\n");
    EXPECT_EQ(Centred(std::string(45, 'x')), "//" + std::string(45, 'x') + " //\r\n");
}

TEST(MCent, DoesNotPadATextOfFullWidth) {
    EXPECT_EQ(Centred(std::string(46, 'x')), "//" + std::string(46, 'x') + "//\r\n");
    EXPECT_EQ(Centred(std::string(254, 'x')), "//" + std::string(254, 'x') + "//\r\n");
}

std::string Banner(const std::string& path) {
    return Written([&](OutputFile& han) { EsqCap(han, path.c_str()); });
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        lines.push_back(text.substr(at, end - at));
        at = end == std::string::npos ? text.size() : end + 2;
    }
    return lines;
}

TEST(EsqCap, HasEightLinesWithTheBaseNameInTheSecond) {
    const auto lines = LinesOf(Banner("C:\\x\\proj1R.h"));
    ASSERT_EQ(lines.size(), 8u);
    for (int rule : {0, 2, 7})
        EXPECT_EQ(lines[rule], std::string(51, '/'));
    for (int text : {1, 3, 4, 5, 6})
        EXPECT_EQ(lines[text].size(), 50u) << lines[text];
    EXPECT_EQ(lines[1], "//" + std::string(20, ' ') + "proj1R" + std::string(20, ' ') + "//");
    EXPECT_NE(lines[3].find("Code Create by Zentrik 2.0a"), std::string::npos);
    EXPECT_NE(lines[6].find("Tutor:"), std::string::npos);
}

TEST(EsqCap, TakesTheNameUpToTheFirstDot) {
    EXPECT_NE(LinesOf(Banner("C:\\a.b.h"))[1].find(" a "), std::string::npos);
    EXPECT_NE(LinesOf(Banner("C:\\my.dir\\a.h"))[1].find(" my "), std::string::npos);
    EXPECT_NE(LinesOf(Banner("plain.h"))[1].find(" plain "), std::string::npos);
    EXPECT_NE(LinesOf(Banner("C:\\noextension"))[1].find(" noextension "), std::string::npos);
}

TEST(IncludeLine, NamesTheFileInQuotes) {
    EXPECT_EQ(Written([](OutputFile& han) { IncludeLine(han, "shell.h"); }),
              "#include \"shell.h\"\r\n");
    const std::string longest(254, 'n');
    EXPECT_EQ(Written([&](OutputFile& han) { IncludeLine(han, longest); }),
              "#include \"" + longest + "\"\r\n");
}

} // namespace
