#include "build_disk.h"

#include "resources/core/variable.h"
#include "sample.h"

namespace zentrik_test {

namespace {

std::filesystem::path LocalFolder(const std::string& path) {
#ifdef _WIN32
    return path;
#else
    return files::LocalPath(path.c_str());
#endif
}

} // namespace

Disk::Disk() {
#ifdef _WIN32
    std::filesystem::remove_all(folder);
#else
    files::SetDriveRoot(drives_.Path(""));
#endif
    std::filesystem::create_directories(LocalFolder(folder));
}

Disk::~Disk() {
    std::error_code ignored;
    std::filesystem::remove_all(LocalFolder(folder), ignored);
#ifndef _WIN32
    files::SetDriveRoot("");
#endif
}

void Disk::Put(const std::string& name, std::string_view content) const {
    std::ofstream(LocalFolder(Path(name)), std::ios::binary) << content;
}

std::string Disk::Content(const std::string& name) const {
    std::string text;
    files::ReadWhole(Path(name).c_str(), files::Mode::Read, text);
    return text;
}

void Disk::Remove(const std::string& name) const {
    files::Remove(Path(name).c_str());
}

void Disk::MakeFolder(const std::string& name) const {
    files::MakeFolder(Path(name).c_str());
}

void Disk::Block(const std::string& name) const {
    Remove(name);
    MakeFolder(name);
}

std::string Tags(const std::vector<std::string>& names) {
    std::vector<TagRecord> records;
    for (const std::string& name : names)
        SetText(records.emplace_back().name, name);
    return std::string(BytesOf(records));
}

std::string Triples(const std::vector<Triple>& triples) {
    std::vector<V_V> records;
    for (const Triple& triple : triples) {
        V_V& record = records.emplace_back();
        SetText(record.Name, triple.a);
        SetText(record.Type, triple.b);
        SetText(record.Val, triple.c);
    }
    return std::string(BytesOf(records));
}

NameRecord Name(const std::string& text) {
    NameRecord record;
    SetText(record.name, text);
    return record;
}

Dat SampleFact(const std::string& name, int ident) {
    Dat fact{};
    SetText(fact.Name, name);
    SetText(fact.Description, "About " + name);
    SetText(fact.KnowType, "TEMP");
    SetText(fact.Units, "Celsius");
    fact.inf_limit = -273.15;
    fact.sup_limit = 1e6;
    fact.Step = 0.5;
    fact.lowest = -10;
    fact.low = 0;
    fact.normal = 20.25;
    fact.high = 123456.789;
    fact.highest = 1e-7;
    fact.Interval = 9;
    fact.Ident = ident;
    return fact;
}

SystemFile EmptySystem() {
    return SystemFile{};
}

namespace {

void PutFirstSystem(const Disk& disk) {
    SystemFile system;
    SetText(system.head.KTypeName, disk.Path("first.typ"));
    SetText(system.head.RuleName, disk.Path("first.rul"));
    SetText(system.head.RuleSizeName, disk.Path("first.siz"));
    SetText(system.head.HeaderName, disk.Path("first.hdr"));
    SetText(system.head.VarName, disk.Path("first.var"));
    SetText(system.head.InitName, disk.Path("first.ikw"));
    SetText(system.head.KnowName, disk.Path("first.fac"));
    system.facts = {SampleFact("Boiler", 1), SampleFact("Valve", 123456)};
    system.opposites = {Name("OVERHEATED\tCHILLED"), Name("OPENED\tSHUT")};
    system.head.TypNum = 2;
    system.head.DatNum = 2;
    system.head.OppNum = 2;
    disk.Put("first.lse", SystemBytes(system));
    disk.Put("first.typ", Tags({"TEMP", "PRESS", "TEMP"}));
    disk.Put("first.rul", "Rule 1\r\n"
                          "If (Boiler.value() > Boiler.fact_value.high)\r\n"
                          "Then deduce(&OVERHEATED, FULL);\r\n"
                          "Else Boiler.assign(ratio * count + f(), FULL);\r\n"
                          "EndIf\r\n"
                          "EndRule\r\n");
    disk.Put("first.hdr", "// before\r\nZkRules// after ZkRules\r\n");
    disk.Put("first.var", Triples({{"count", "long", "0"}, {"ratio", "double", "1.5"}}));
    disk.Put("first.ikw", Triples({{"Boiler", "count", "FULL"},
                                   {"Valve", "", "  "},
                                   {"Boiler", "2", "0.5"},
                                   {"Valve", "3", "1"}}));
}

void PutSecondSystem(const Disk& disk) {
    SystemFile system;
    SetText(system.head.KTypeName, disk.Path("second.typ"));
    SetText(system.head.RuleName, disk.Path("second.rul"));
    disk.Put("second.lse", SystemBytes(system));
    disk.Put("second.typ", Tags({"FLOW", "TEMP"}));
    disk.Put("second.rul", "Rule 1\r\nEndRule");
}

void PutTemplates(const Disk& disk) {
    disk.MakeFolder("morv");
    for (const char* name : {"ddecom1.dat", "ddecom2.dat", "ddecom3.dat", "ddecom4.dat",
                             "consts1.dat", "consts2.dat", "consts3.dat"})
        disk.Put(std::string("morv\\") + name, std::string("/* ") + name + " */\r\n\x1a");
    disk.MakeFolder("work");
}

std::string DdeFileBytes() {
    std::string bytes("Plant");
    bytes.resize(255);
    for (const auto& [name, type] :
         std::vector<std::pair<std::string, std::string>>{{"Label", "char"},
                                                          {"Level", "float"},
                                                          {"Rate", "double"},
                                                          {"Count", "int"},
                                                          {"Ticks", "long"}}) {
        std::string item = name;
        item.resize(50);
        item += type;
        item.resize(150);
        bytes += item;
    }
    return bytes;
}

} // namespace

ProjectRecord PutSampleProject(const Disk& disk) {
    ProjectRecord project{};
    SetText(project.MainName, disk.Path("main.cpp"));
    SetText(project.EngineNames[1], disk.Path("first.lse"));
    SetText(project.EngineNames[2], disk.Path("second.lse"));
    SetText(project.ExternFiles[1], disk.Path("extern.cpp"));
    SetText(project.DDEName, disk.Path("plant.dde"));
    SetText(project.ResAux, disk.Path("plant.aux"));
    project.EngNum = 2;
    project.ExtNum = 1;
    project.DatHisLen = 30;
    PutFirstSystem(disk);
    PutSecondSystem(disk);
    PutTemplates(disk);
    disk.Put("main.cpp", "\tfirst.engine();\r\n\tsecond.engine();");
    disk.Put("extern.cpp", "// helpers\r\n#include <math.h>\r\n  #include \"own.h\" // two\r\n"
                           "int f() { return own(2); }\r\n");
    disk.Put("plant.dde", DdeFileBytes());
    disk.Put("plant.aux", Tags({"OVERHEATED", "CHILLED", "OPENED", "SHUT"}));
    return project;
}

void PutRuntimeTemplates(const Disk& disk) {
    EXPECT_EQ(PutRuntime(disk.folder), "");
}

void ExpectGolden(const std::string& name, const std::string& content, const std::string& project) {
    const std::string path =
        std::string(SOURCE_FOLDER) + "/tests/core/golden/" + project + "/" + name;
    std::ostringstream golden;
    golden << std::ifstream(path, std::ios::binary).rdbuf();
    if (golden.str() != content)
        std::ofstream(path + ".new", std::ios::binary) << content;
    EXPECT_EQ(golden.str(), content) << "see " << path << ".new";
}

} // namespace zentrik_test
