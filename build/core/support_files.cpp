#include "build/core/support_files.h"

#include "build/core/banner.h"
#include "build/core/generated_file.h"
#include "build/core/project_lists.h"
#include "resources/core/dde_item.h"
#include "shell/core/messages.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace {

constexpr char kBuildCaption[] = "Compile MORV";
constexpr char kNoDde[] = "Dde File not found";

bool Create(OutputFile& han, const std::string& path) {
    if (han.Create(path.c_str())) {
        EsqCap(han, path.c_str());
        return true;
    }
    GetErr();
    return false;
}

// Adds a template whole but for its last byte. Returns false, after `han` was given up with
// `missing`, when it cannot be read.
bool AddTemplate(const SupportInput& in, OutputFile& han, const char* name, const char* missing) {
    std::string text;
    const std::string path = in.morv_path + "\\" + name;
    if (!files::ReadWhole(path.c_str(), files::Mode::Read, text)) {
        GiveUp(han, in.owner, missing, kBuildCaption);
        return false;
    }
    han.Add(std::string_view(text).substr(0, text.empty() ? 0 : text.size() - 1));
    return true;
}

bool ReadItems(const SupportInput& in, DdeFile& dde) {
    return ReadDde(Text(in.project.DDEName).c_str(), files::Mode::Read, dde);
}

// ddecom.cpp: the names of the items.
void ItemNames(OutputFile& han, const std::vector<DDE_ITEM>& items) {
    for (const DDE_ITEM& item : items)
        WriteLine(han, {"\"", Text(item.DName), "\"", &item != &items.back() ? "," : ""});
    WriteFile(han, "};", 1);
}

// ddecom.h: how many items there are and the structure that holds their values.
void ItemStructure(OutputFile& han, const std::vector<DDE_ITEM>& items) {
    WriteLines(han, {std::to_string(items.size()), "struct Informacio", "{"});
    for (const DDE_ITEM& item : items)
        WriteLine(han, {"\t", Text(item.DType), " ", Text(item.DName), ";"});
    WriteFile(han, "};", 1);
}

// The call that turns the text of an item into its value; none for a type not known.
const char* Conversion(std::string_view type) {
    if (type == "float" || type == "double")
        return "=atof(Dat);";
    if (type == "int")
        return "=atoi(Dat);";
    if (type == "long")
        return "=atol(Dat);";
    return nullptr;
}

void StoreItem(OutputFile& han, const DDE_ITEM& item) {
    const std::string type = Text(item.DType);
    if (type == "char") {
        WriteLine(han, {"strcpy(DDEinfo.", Text(item.DName), ",Dat);"});
        return;
    }
    WriteFile(han, "\t\tDDEinfo.", 0);
    WriteFile(han, Text(item.DName), 0);
    // The line of an unknown type stays open, which stops the compiler right there.
    if (const char* conversion = Conversion(type))
        WriteFile(han, conversion, 1);
}

// ddecom.cpp: the function that takes a new value.
void NewData(OutputFile& han, const std::vector<DDE_ITEM>& items) {
    WriteLines(han, {"void NewData(int a,char Dat[])", "{", "switch(a)", "{"});
    for (std::size_t k = 0; k < items.size(); ++k) {
        WriteLine(han, {"\tcase ", std::to_string(k), ":"});
        StoreItem(han, items[k]);
        WriteFile(han, "\tbreak;", 1);
    }
    WriteLines(han, {"}", "}"});
}

// Collects the knowledge types of all systems, also in the scratch file. Returns 0 or -1.
int CollectTypes(const SupportInput& in, SystemHead& last_read, OutputFile& consts,
                 std::vector<TagRecord>& types) {
    OutputFile scratch;
    if (!scratch.Create((in.work_path + "\\Ktype.tmp").c_str())) {
        GetErr();
        return -1;
    }
    const int systems = SystemCount(in.project);
    for (int i = 1; i <= systems; ++i) {
        SystemFile system;
        const ReadResult result = ReadSystem(Text(in.project.EngineNames[i]).c_str(), system);
        if (result == ReadResult::Missing || result == ReadResult::Useless) {
            consts.Close();
            ShowMessage(in.owner, "Engine not found", kBuildCaption);
            return -1;
        }
        std::copy(std::begin(system.head.KTypeName), std::end(system.head.KTypeName),
                  last_read.KTypeName);
        std::vector<TagRecord> own;
        ReadRecords(Text(system.head.KTypeName).c_str(), files::Mode::Read, own);
        scratch.Add(BytesOf(own));
        types.insert(types.end(), own.begin(), own.end());
    }
    return Finish(scratch);
}

// The names without repetition, each where it stands last.
std::vector<std::string> Distinct(const std::vector<TagRecord>& types) {
    std::vector<std::string> names;
    std::unordered_set<std::string> seen;
    for (auto type = types.rbegin(); type != types.rend(); ++type) {
        std::string name = Text(type->name);
        if (seen.insert(name).second)
            names.push_back(std::move(name));
    }
    std::reverse(names.begin(), names.end());
    return names;
}

void TypesEnum(OutputFile& han, const SupportInput& in, const std::vector<TagRecord>& types) {
    if (types.empty())
        ShowMessage(in.owner, "Zero", kBuildCaption);
    for (const std::string& name : Distinct(types)) {
        WriteFile(han, ",", 0);
        WriteFile(han, name, 0);
    }
    WriteFile(han, "};", 1);
    Return(han);
}

} // namespace

int WriteDdecom(const SupportInput& in) {
    OutputFile header;
    OutputFile source;
    if (!Create(header, in.names.ddecom_h) || !Create(source, in.names.ddecom_cpp))
        return -1;
    if (!AddTemplate(in, header, "ddecom1.dat", "Ddecom1.dat not found check MORV Path") ||
        !AddTemplate(in, source, "ddecom3.dat", "Ddecom3.dat not found check MORV Path"))
        return -1;
    Return(source);
    WriteLines(source, {"Informacio DDEinfo;//- La estructura informacio", "char *Items[]={"});
    WriteFile(header, "#define numItems ", 0);

    DdeFile dde;
    if (!ReadItems(in, dde))
        return GiveUp(source, in.owner, kNoDde, kBuildCaption);
    ItemNames(source, dde.items);
    ItemStructure(header, dde.items);
    if (!AddTemplate(in, header, "ddecom2.dat", "ddecom2.dat not found check MORV Path"))
        return -1;
    if (Finish(header) != 0)
        return -1;
    if (!AddTemplate(in, source, "ddecom4.dat", "Ddecom4.dat not foud check MORV Path"))
        return -1;
    Return(source);
    NewData(source, dde.items);
    return Finish(source);
}

int WriteConsts(const SupportInput& in, SystemHead& last_read) {
    OutputFile han;
    if (!Create(han, in.names.consts_h) ||
        !AddTemplate(in, han, "consts1.dat", "Consts1.dat not found check MORV Path"))
        return -1;
    Return(han);
    WriteLine(han, {"#define MAXNUMTICKS\t", std::to_string(in.project.DatHisLen),
                    "\t//Maxim Number of TICKS to Save in Variable History"});
    Return(han);
    if (!AddTemplate(in, han, "consts2.dat", "consts2.dat not found, check MORV Path"))
        return -1;
    Return(han);
    Return(han);
    WriteFile(han, "enum DATAFACTTYPE {NOTYPE=0, DETECTION, DIAGNOSTIC, ACTION ", 0);

    std::vector<TagRecord> types;
    if (CollectTypes(in, last_read, han, types) != 0)
        return -1;
    TypesEnum(han, in, types);
    if (!AddTemplate(in, han, "consts3.dat", "consts3.dat file not found check MORV Path"))
        return -1;
    return Finish(han);
}

int WriteMorvApi(const SupportInput& in) {
    OutputFile han;
    if (!Create(han, in.morv_path + "\\MorvApi.h"))
        return -1;
    WriteLines(han, {"#ifndef TAD_ZENPROJECT", "#define TAD_ZENPROJECT"});
    WriteLine(han, {"char ApZk[255]={\"api", in.names.base, "\"};"});
    DdeFile dde;
    if (!ReadItems(in, dde))
        return GiveUp(han, in.owner, kNoDde, kBuildCaption);
    WriteLine(han, {"char ItemZk[255]={\"", dde.name, "\"};"});
    WriteFile(han, "#endif", 1);
    return Finish(han);
}
