// Damaged files of every kind, read for a bounded time: nothing is read past its end, and what was
// read holds together.
#include "build_disk.h"
#include "check_log.h"

#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "resources/core/fact_texts.h"
#include "resources/core/facts_file.h"
#include "resources/core/record_files.h"
#include "resources/core/value_entries.h"

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
        ASSERT_TRUE(result == ReadResult::Useless || bytes.size() >= sizeof(SystemHead));
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
        ASSERT_TRUE(result == ReadResult::Useless || bytes.size() >= sizeof(ProjectRecord));
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

// A fact without what its fields cannot show.
bool StandsInItsFields(const Dat& fact) {
    const FactTexts texts = TextsOf(fact);
    return texts.name.size() <= sizeof fact.Name && texts.type.size() <= sizeof fact.KnowType &&
           texts.unit.size() <= sizeof fact.Units;
}

TEST(DamagedFiles, FactsBasesReadAndChangeAsFarAsTheyGo) {
    const Disk disk;
    Dat fact{};
    SetText(fact.Name, "level");
    SetText(fact.KnowType, "ACTION");
    const std::string sound(BytesOf(std::vector<Dat>(3, fact)));
    const std::string path = disk.Path("a.fac");
    ForAWhile([&](std::mt19937& random) {
        const std::string bytes = Damage(sound, random);
        const int whole = static_cast<int>(bytes.size() / sizeof(Dat));
        disk.Put("a.fac", bytes);
        Dat read;
        for (int i = 0; i <= whole; ++i)
            ASSERT_EQ(ReadFact(path.c_str(), static_cast<std::size_t>(i), read), i < whole);
        ASSERT_TRUE(whole == 0 || StandsInItsFields(read));
        const std::size_t index = random() % 6;
        const int at = std::min(static_cast<int>(index), whole);
        ASSERT_EQ(ReplaceFact(path.c_str(), index, fact), at);
        ASSERT_TRUE(ReadFact(path.c_str(), static_cast<std::size_t>(at), read));
        ASSERT_EQ(BytesOf(read), BytesOf(fact));
        ASSERT_EQ(RemoveFact(path.c_str(), 99), Removal::NoSuchFact);
        ASSERT_EQ(RemoveFact(path.c_str(), static_cast<std::size_t>(at)), Removal::Done);
    });
}

TEST(DamagedFiles, ListsOfNamesReadAsFarAsTheyGo) {
    const Disk disk;
    const std::string path = disk.Path("a.tag");
    ASSERT_TRUE(WriteNames(path.c_str(), std::vector<std::string>{"one", "two", "three"}));
    const std::string sound = disk.Content("a.tag");
    ForAWhile([&](std::mt19937& random) {
        const std::string bytes = Damage(sound, random);
        disk.Put("a.tag", bytes);
        std::vector<std::string> names = NamesIn(path.c_str());
        ASSERT_EQ(names.size(), bytes.size() / sizeof(TagRecord));
        for (std::string& name : names) {
            ASSERT_LE(name.size(), sizeof(TagRecord));
            name.resize(std::min(name.size(), sizeof(TagRecord) - 1));
        }
        // What was read, less a name's 50th byte, is written and read again.
        ASSERT_TRUE(WriteNames(path.c_str(), names));
        ASSERT_EQ(NamesIn(path.c_str()), names);
    });
}

TEST(DamagedRows, AreTakenApartWithinTheirFields) {
    const std::vector<std::string> sound = {"level \t long \t a + b", "level \t 12 \t FULL",
                                            UnsetFactRow("level"), "Level\tunsigned int"};
    const auto fits = [](const auto& field) { return field[sizeof field - 1] == '\0'; };
    ForAWhile([&](std::mt19937& random) {
        std::string row = Damage(sound[random() % sound.size()], random);
        for (char& c : row) // a list's rows have blanks and TABs in odd places, never a NUL
            if (c == '\0' || random() % 10 == 0)
                c = random() % 2 == 0 ? ' ' : '\t';
        const V_V variable = VariableIn(row);
        ASSERT_TRUE(fits(variable.Name) && fits(variable.Type) && fits(variable.Val)) << row;
        ASSERT_TRUE(row.starts_with(Text(variable.Name)));
        const I_K fact = InitialFactIn(row);
        ASSERT_TRUE(fits(fact.K_Name) && fits(fact.K_Val) && fits(fact.Pres)) << row;
        ASSERT_EQ(Text(fact.K_Name), Text(variable.Name));
        ASSERT_NE(row.find(Text(fact.K_Val)), std::string::npos);
        ASSERT_NE(row.find(Text(fact.Pres)), std::string::npos);
        const DDE_ITEM item = DdeItemIn(row);
        ASSERT_TRUE(fits(item.DName) && fits(item.DType)) << row;
        ASSERT_EQ(Text(item.DName), row.substr(0, std::min<std::size_t>(row.find('\t'), 49)));
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
