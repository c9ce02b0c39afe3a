// Damaged files of every kind, read for a bounded time: nothing is read past its end, and what was
// read holds together.
#include "build_disk.h"
#include "check_log.h"

#include "build/rules_header.h"
#include "build/rules_source.h"
#include "build/support_files.h"
#include "resources/dde_item.h"

#include <chrono>
#include <random>

namespace {

using zentrik_test::Boxes;
using zentrik_test::CheckLog;
using zentrik_test::Disk;
using zentrik_test::PutSampleProject;

// Changes some bytes of a file, cuts it, or adds to it.
std::string Damage(std::string bytes, std::mt19937& random) {
    const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
    for (std::size_t i = below(20); i > 0 && !bytes.empty(); --i)
        bytes[below(bytes.size())] = static_cast<char>(below(4) == 0 ? 0xff : below(256));
    if (below(3) == 0)
        bytes.resize(below(bytes.size() + 1));
    if (below(4) == 0)
        bytes.append(below(700), static_cast<char>(below(256)));
    return bytes;
}

template <class Once> void ForAWhile(Once once) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    std::mt19937 random(7);
    do
        once(random);
    while (std::chrono::steady_clock::now() < end && !testing::Test::HasFatalFailure());
}

TEST(DamagedFiles, SystemFilesReadAsFarAsTheyGo) {
    const Disk disk;
    PutSampleProject(disk);
    const std::string sound = disk.Content("first.lse");
    ForAWhile([&](std::mt19937& random) {
        const std::string bytes = Damage(sound, random);
        disk.Put("a.lse", bytes);
        SystemFile system;
        const ReadResult result = ReadSystem(disk.Path("a.lse").c_str(), system);
        const std::int32_t facts = system.head.DatNum;
        const std::int32_t opposites = system.head.OppNum;
        ASSERT_EQ(result == ReadResult::Useless, bytes.size() < sizeof(SystemHead));
        ASSERT_EQ(static_cast<std::size_t>(facts), system.facts.size());
        ASSERT_EQ(static_cast<std::size_t>(opposites), system.opposites.size());
        if (result == ReadResult::Ok) {
            ASSERT_TRUE(bytes.starts_with(SystemBytes(system)));
        }
    });
}

TEST(DamagedFiles, ProjectFilesReadAsFarAsTheyGo) {
    const Disk disk;
    ProjectFile sound;
    sound.head = PutSampleProject(disk);
    sound.results.resize(3);
    sound.head.ResNum = 3;
    ASSERT_TRUE(WriteProject(disk.Path("a.mrv").c_str(), sound));
    const std::string whole = disk.Content("a.mrv");
    ForAWhile([&](std::mt19937& random) {
        const std::string bytes = Damage(whole, random);
        disk.Put("a.mrv", bytes);
        ProjectFile project;
        const ReadResult result = ReadProject(disk.Path("a.mrv").c_str(), project);
        ASSERT_EQ(result == ReadResult::Useless, bytes.size() < sizeof(ProjectRecord));
        const int systems = project.head.EngNum;
        const int externs = project.head.ExtNum;
        const std::int32_t results = project.head.ResNum;
        ASSERT_TRUE(systems >= 0 && systems <= kMaxSystems);
        ASSERT_TRUE(externs >= 0 && externs <= kMaxExterns);
        ASSERT_EQ(static_cast<std::size_t>(results), project.results.size());
    });
}

TEST(DamagedFiles, DdeFilesReadAsFarAsTheyGo) {
    const Disk disk;
    PutSampleProject(disk);
    const std::string sound = disk.Content("plant.dde");
    ForAWhile([&](std::mt19937& random) {
        const std::string bytes = Damage(sound, random);
        disk.Put("a.dde", bytes);
        DdeFile dde;
        ASSERT_TRUE(ReadDde(disk.Path("a.dde").c_str(), files::Mode::Read, dde));
        ASSERT_EQ(dde.items.size(), bytes.size() < 255 ? 0 : (bytes.size() - 255) / 150);
        ASSERT_LE(dde.name.size(), 255u);
    });
}

TEST(DamagedFiles, ABuildEndsWhateverItReads) {
    const Disk disk;
    const ProjectRecord sound = PutSampleProject(disk);
    const std::vector<std::string> names = {
        "first.lse", "first.typ", "first.rul",  "first.hdr", "first.var",        "first.ikw",
        "plant.dde", "plant.aux", "extern.cpp", "main.cpp",  "morv\\ddecom1.dat"};
    std::vector<std::string> contents;
    for (const std::string& name : names)
        contents.push_back(disk.Content(name));
    const BuildNames outputs(disk.Path("plant.mrv").c_str());
    ForAWhile([&](std::mt19937& random) {
        Boxes boxes;
        for (std::size_t i = 0; i < names.size(); ++i)
            disk.Put(names[i], random() % 2 == 0 ? contents[i] : Damage(contents[i], random));
        disk.Put("first.siz", Damage(std::string(267 * 3, '\1'), random));
        ProjectRecord project = sound;
        const std::string record = Damage(std::string(BytesOf(sound)), random);
        if (random() % 4 == 0)
            std::memcpy(&project, record.data(), std::min(record.size(), sizeof project));
        SystemHead last{};
        CheckLog log;
        Lexical anul = Lexical::Code;
        const SupportInput in{project, outputs, disk.Path("morv"), disk.Path("work"), nullptr};
        CheckProject(project, anul, log, nullptr);
        const int results[] = {
            CrearRulesH(project, outputs.rules_h.c_str(), nullptr),
            CrearRulesCpp(project, last, outputs.rules_cpp.c_str(), "plantR.h", nullptr),
            WriteDdecom(in), WriteConsts(in, last), WriteMorvApi(in)};
        // What fails says so.
        for (int result : results)
            ASSERT_TRUE(result == 0 || (result == -1 && !boxes.shown.empty()));
    });
}

} // namespace
