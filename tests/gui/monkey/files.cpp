#include "tests/gui/monkey/files.h"

#include "tests/gui/sample_project.h"

#include <windows.h>

namespace monkey {

namespace {

// The files of the sample project that a dialog may be asked for.
const std::vector<std::string> kSound{"plant.mrv", "tank.lse",  "tank.rul",  "tank.fac",
                                      "tank.typ",  "main.cpp",  "help.cpp",  "head.cpp",
                                      "link.dde",  "names.rst", "names.tag", "plant.aux"};

std::string ExtensionOf(const std::string& name) {
    return name.substr(name.rfind('.'));
}

// Bytes in disorder. Byte 0x98 is left out: shown in an edit control it brings some versions of
// Wine down, in any program.
std::string Garbage(Dice& dice, std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) {
        const auto byte = static_cast<unsigned char>(dice.Below(256));
        bytes += static_cast<char>(byte == 0x98 ? 0 : byte);
    }
    return bytes;
}

std::string Damaged(Dice& dice, std::string bytes) {
    for (std::size_t i = dice.Below(20) + 1; i > 0 && !bytes.empty(); --i) {
        const std::string one = Garbage(dice, 1);
        bytes[dice.Below(bytes.size())] = dice.Percent(30) ? '\xff' : one[0];
    }
    return bytes;
}

} // namespace

Files::Files(Dice& dice) {
    gui::PutSampleProject(work_);
    gui::PutFile(work_.Path("names.tag"), gui::TagBytes({"if", "then", "a longer tag"}));
    // Compile generates and starts this; nothing has to come of it.
    gui::PutTools(work_, work_.Path("zkcc.exe"));
    gui::CopyTo(gui::OwnFolder() + "\\record_args.exe", work_.Path("zkcc.exe"));
    gui::MakeFolders(work_.Path("folder.mrv"));
    PutDamaged(dice);
    PutKept();
}

// For each kind of file one that is cut short, one with wrong bytes, and one that is something
// else altogether.
void Files::PutDamaged(Dice& dice) {
    for (const std::string& name : kSound) {
        const std::string extension = ExtensionOf(name);
        const std::string content = gui::FileContent(work_.Path(name));
        gui::PutFile(work_.Path("cut" + extension), content.substr(0, dice.Below(content.size())));
        gui::PutFile(work_.Path("bad" + extension), Damaged(dice, content));
        gui::PutFile(work_.Path("odd" + extension), Garbage(dice, dice.Below(9000)));
    }
}

// The witnesses are called like the files that the program works with.
void Files::PutKept() {
    for (const std::string& name : kSound) {
        const std::string content = gui::FileContent(work_.Path(name));
        const std::string sealed = work_.Path("sealed" + ExtensionOf(name));
        gui::PutFile(sealed, content);
        Keep(sealed);
        SetFileAttributesA(sealed.c_str(), FILE_ATTRIBUTE_READONLY);
        gui::PutFile(witnesses_.Path(name), content);
        Keep(witnesses_.Path(name));
    }
    for (const char* name : {"toolfile.tol", "untitled.rul", "plantR.cpp"}) {
        gui::PutFile(witnesses_.Path(name), name);
        Keep(witnesses_.Path(name));
    }
}

void Files::Keep(const std::string& path) {
    kept_[path] = gui::FileContent(path);
}

std::string Files::AnyName(Dice& dice, const std::string& extension) const {
    static const std::vector<std::string> odd{
        "",       ".",         "no\\such\\folder.mrv", "folder.mrv", "a?b*.cpp", "nul",
        "x",      "a.b.c.mrv", "with blanks.lse",      "sealed.lse", "C:\\",     "Q:\\no.mrv",
        "quo\"te"};
    if (dice.Percent(8))
        return dice.One(odd);
    std::vector<std::string> fitting;
    for (const std::string& name : kSound)
        if (ExtensionOf(name) == extension)
            fitting.push_back(name);
    if (fitting.empty() || dice.Percent(8))
        return work_.Path(dice.One(kSound));
    if (dice.Percent(50))
        return work_.Path(dice.One(fitting));
    static const std::vector<std::string> others{"cut",  "bad",  "odd",     "sealed",
                                                 "new1", "new2", "untitled"};
    return work_.Path(dice.One(others) + extension);
}

std::string Files::Touched() const {
    for (const auto& [path, content] : kept_)
        if (gui::FileContent(path) != content)
            return path;
    return {};
}

} // namespace monkey
