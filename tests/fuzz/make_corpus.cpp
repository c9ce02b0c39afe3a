// Writes the seeds that the fuzz targets start from, made from the sample and the golden projects:
//     make_corpus FOLDER
#include "system/core/rule_text.h"
#include "tests/core/build_disk.h"
#include "tests/core/sample.h"

#include <cstdio>

namespace {

using zentrik_test::Disk;
using zentrik_test::Name;
using zentrik_test::Tags;
using zentrik_test::Triples;

namespace fs = std::filesystem;

class Corpus {
public:
    explicit Corpus(fs::path folder) : folder_(std::move(folder)) {}

    void Add(const std::string& target, const std::string& name, std::string_view bytes) const {
        fs::create_directories(folder_ / target);
        std::ofstream(folder_ / target / name, std::ios::binary) << bytes;
    }

private:
    fs::path folder_;
};

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (int value : values)
        bytes += static_cast<char>(value);
    return bytes;
}

std::string Word(std::size_t value) {
    return Bytes({static_cast<int>(value % 256), static_cast<int>(value / 256)});
}

std::string SourceText(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(fs::path(SOURCE_FOLDER) / path, std::ios::binary).rdbuf();
    return text.str();
}

void Documents(const Corpus& corpus, const Disk& disk) {
    corpus.Add("project_file", "boiler", disk.Content("boiler\\boiler.mrv"));
    corpus.Add("system_file", "steam", disk.Content("boiler\\steam.lse"));
    const std::string plant = disk.Content("first.lse");
    corpus.Add("system_file", "plant", plant);
    corpus.Add("system_file", "short", std::string_view(plant).substr(0, 2500));
    const std::string facts = disk.Content("boiler\\steam.fac").substr(0, 3 * sizeof(Dat));
    for (int action = 0; action < 3; ++action)
        corpus.Add("facts_base", std::to_string(action), Bytes({action, 1}) + facts);
}

// The first byte of each is the reader's number in small_files.cpp.
void SmallFiles(const Corpus& corpus, const Disk& disk) {
    const auto add = [&](int reader, const std::string& name, const std::string& bytes) {
        corpus.Add("small_files", name, Bytes({reader}) + bytes);
    };
    add(0, "names", disk.Content("first.typ"));
    add(1, "variables", disk.Content("first.var"));
    add(2, "initial_facts", Triples({{"Boiler", "count", "FULL"}, {"Valve", "", "  "}}));
    add(3, "dde_items", disk.Content("plant.dde"));
    add(4, "tools", std::string(BytesOf(std::vector<NameRecord>{Name("C:\\morv"), Name("zkcc")})));
    add(5, "results", disk.Content("plant.aux"));
    add(6, "index", IndexBytes({120, 80}));
    add(7, "row", "level \t long \t DDEinfo.Level + 2");
    add(7, "number", "-12.5e3 metres");
    add(7, "path", "C:\\zentrik\\boiler\\boiler.mrv");
}

void Rules(const Corpus& corpus) {
    for (const char* name : {"steam", "burner"}) {
        const std::string text = SourceText(std::string("examples/boiler/") + name + ".rul");
        const RenumberedRules rules = Renumber(text);
        std::string cuts =
            Bytes({0, static_cast<int>(std::min<std::size_t>(rules.sizes.size(), 7))});
        for (std::size_t i = 0; i < rules.sizes.size() && i < 7; ++i)
            cuts += Word(static_cast<std::size_t>(rules.sizes[i]) + 100);
        corpus.Add("rule_check", name, cuts + Word(300) + text);
        corpus.Add("renumber", name, Bytes({3}) + text);
        corpus.Add("language", name, text);
    }
    const std::string odd =
        "Rule 1\r\nForAll x\r\nIfOr (a, /* b\r\n */ \"c\")\r\nThen // d\r\n"
        "IfAny (e) Then f; Otherwise g; EndIfAny\r\nElse h;\r\nEndIfOr\r\n"
        "IfXor (i) Then EndIfXor EndForAll\r\nEndRule\r\nRules EndRuleRule 7 EE";
    corpus.Add("rule_check", "odd", Bytes({2, 1, 0, 1, 40, 0}) + odd);
    corpus.Add("renumber", "odd", Bytes({2}) + odd);
    corpus.Add("language", "odd", odd);
    corpus.Add(
        "language", "all_blocks",
        "Rule 1\r\nForAll (T) // x\r\nIfOr (a, /* b\r\n */ \"c\")\r\nThen // d\r\n"
        "IfAny (e, f) Then g; Otherwise h; EndIfAny\r\nElse X.assign(1, FULL);\r\nEndIfOr\r\n"
        "IfXor (i) Then EndIfXor EndForAll\r\nEndRule\r\n");
}

void Builds(const Corpus& corpus) {
    const auto change = [](int file, std::size_t at, const std::string& bytes) {
        return Bytes({file}) + Word(at) + Word(bytes.size()) + bytes;
    };
    corpus.Add("build", "sound", "");
    corpus.Add("build", "rules",
               change(2, 40, "If If Then EndRule") + change(3, 0, IndexBytes({30, 28})));
    corpus.Add("build", "header",
               change(4, 3, "no marker") + change(9, 0, "#include \"x\"\r\n#include"));
    corpus.Add("build", "records", change(0, 1785, std::string(12, '\x7f')) + change(6, 700, "x"));
    corpus.Add("build", "project", change(12, 4080, std::string(8, '\xff')) + change(7, 260, ""));
}

void Translations(const Corpus& corpus) {
    for (const char* name : {"bare", "plant"}) {
        const std::string golden = std::string("tests/core/golden/") + name + "/" + name + "R";
        corpus.Add("translate", name,
                   SourceText(golden + ".h") + '\0' + SourceText(golden + ".cpp"));
    }
}

} // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::fprintf(stderr, "make_corpus FOLDER\n");
        return 2;
    }
    const Disk disk;
    const std::string wrong = zentrik_test::PutSample(disk.folder);
    if (!wrong.empty()) {
        std::fprintf(stderr, "%s\n", wrong.c_str());
        return 1;
    }
    zentrik_test::PutSampleProject(disk);
    const Corpus corpus(words[1]);
    Documents(corpus, disk);
    SmallFiles(corpus, disk);
    Rules(corpus);
    Builds(corpus);
    Translations(corpus);
    return 0;
}
