// The readers of the smaller record files, of their list rows and of the rule index. The first byte
// of the input chooses one, the others are the file.
#include "build/core/tools_file.h"
#include "project/core/results_file.h"
#include "resources/core/numbers.h"
#include "resources/core/record_files.h"
#include "resources/core/value_entries.h"
#include "shell/core/paths.h"
#include "system/core/rule_text.h"
#include "tests/fuzz/fuzz.h"

#include <cmath>

namespace {

// Tags, results and knowledge types.
void Names(std::string_view input) {
    const std::string path = fuzz::FileOf(input);
    const std::vector<std::string> names = NamesIn(path.c_str());
    fuzz::Holds(names.size() == input.size() / sizeof(TagRecord), "every whole name is read");
    fuzz::Holds(WriteNames(path.c_str(), names), "names are written");
    const std::string written = fuzz::ContentOf(path);
    fuzz::Holds(WriteNames(path.c_str(), NamesIn(path.c_str())) && fuzz::ContentOf(path) == written,
                "names written, read and written again have the same bytes");
}

// The rows of the records of a file, taken for records again. Only the first time may lose what a
// row cannot show.
template <class Record>
void Rows(std::string_view input, std::string (*row_of)(const Record&),
          Record (*record_in)(std::string_view)) {
    for (const Record& record : RecordsIn<Record>(input)) {
        const Record shown = record_in(row_of(record));
        fuzz::Holds(BytesOf(record_in(row_of(shown))) == BytesOf(shown),
                    "a row that was taken for a record is taken for the same again");
    }
}

void Variables(std::string_view input) {
    const std::string path = fuzz::FileOf(input);
    const std::size_t records = input.size() / sizeof(V_V);
    fuzz::Holds(VariableNames(path.c_str()).size() == records, "every variable has a name");
    fuzz::Holds(VariableRows(path.c_str()).size() == records, "every variable has a row");
    Rows(input, VariableRow, VariableIn);
}

void InitialFacts(std::string_view input) {
    const InitialValues values(fuzz::FileOf(input).c_str());
    for (const I_K& fact : RecordsIn<I_K>(input))
        values.Row(Text(fact.K_Name));
    Rows(input, InitialFactRow, InitialFactIn);
}

void DdeItems(std::string_view input) {
    const std::string path = fuzz::FileOf(input);
    OfferedItems(path.c_str());
    DdeFile dde;
    fuzz::Holds(ReadDde(path.c_str(), files::Mode::Read, dde), "a file of DDE items is read");
    for (const DDE_ITEM& item : dde.items) {
        const DDE_ITEM shown = DdeItemIn(DdeRow(item));
        fuzz::Holds(BytesOf(DdeItemIn(DdeRow(shown))) == BytesOf(shown),
                    "a row that was taken for an item is taken for the same again");
    }
    const std::string written = DdeBytes(dde);
    DdeFile again;
    ReadDde(fuzz::FileOf(written).c_str(), files::Mode::Read, again);
    fuzz::Holds(DdeBytes(again) == written,
                "DDE items written, read and written again have the same bytes");
}

void Tools(std::string_view input) {
    const std::string path = fuzz::FileOf(input);
    ToolsFile tools;
    fuzz::Holds(ReadTools(path.c_str(), tools), "a tools file is read");
    fuzz::Holds(WriteTools(path.c_str(), tools), "a tools file is written");
    const std::string written = fuzz::ContentOf(path);
    fuzz::Holds(ReadTools(path.c_str(), tools) && WriteTools(path.c_str(), tools) &&
                    fuzz::ContentOf(path) == written,
                "tools written, read and written again have the same bytes");
}

void Results(std::string_view input) {
    const std::string path = fuzz::FileOf(input);
    fuzz::Holds(PruneResults(path.c_str(), path.c_str()), "results are pruned");
    fuzz::Holds(NamesIn(path.c_str()).empty(), "results less themselves are none");
    fuzz::FileOf(input);
    fuzz::Holds(EmptyResults(path.c_str()) && fuzz::ContentOf(path).empty(), "results are emptied");
}

void RuleIndex(std::string_view input) {
    const IndexedRules first = FirstRules(input);
    const IndexedRules all = AllRules(input);
    fuzz::Holds(first.names.size() <= static_cast<std::size_t>(first.count),
                "no more rules are listed than there are");
    fuzz::Holds(all.names.size() == static_cast<std::size_t>(all.count), "all rules are listed");
    fuzz::Holds(first.count == std::max(all.count, 1), "the first rule is listed in any case");
}

// Rows, numbers and paths as a user may type them.
void Texts(std::string_view input) {
    const std::string text(input);
    const V_V variable = VariableIn(text);
    fuzz::Holds(BytesOf(VariableIn(VariableRow(variable))) == BytesOf(variable),
                "a variable's row is taken for the same again");
    const I_K fact = InitialFactIn(text);
    fuzz::Holds(BytesOf(InitialFactIn(InitialFactRow(fact))) == BytesOf(fact),
                "an initial fact's row is taken for the same again");
    DdeItemIn(text);
    const double number = NumberIn(text);
    const std::string shown = NumberText(number);
    fuzz::Holds(std::isnan(number) || NumberText(NumberIn(shown)) == shown,
                "a number's text is read as the number it shows");
    WholeNumberIn(text);
    fuzz::Holds(Stem(text).size() <= text.size() && FolderOf(text).size() <= text.size(),
                "parts of a path are no longer than the path");
}

} // namespace

void Fuzz(std::string_view bytes) {
    static constexpr void (*kReaders[])(std::string_view) = {
        Names, Variables, InitialFacts, DdeItems, Tools, Results, RuleIndex, Texts};
    fuzz::Input input(bytes);
    const std::size_t reader = input.Byte() % std::size(kReaders);
    kReaders[reader](input.Rest());
}
