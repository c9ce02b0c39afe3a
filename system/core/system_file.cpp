#include "system/core/system_file.h"

#include <limits>

namespace {

// A file is read as one text, so it cannot have more records than fit into one.
bool CountsArePossible(const SystemHead& head) {
    constexpr std::int64_t kLongest = std::numeric_limits<std::int32_t>::max();
    const std::int64_t facts = head.DatNum;
    const std::int64_t opposites = head.OppNum;
    return facts >= 0 && opposites >= 0 &&
           facts * std::int64_t{sizeof(Dat)} + opposites * std::int64_t{kNameSize} <= kLongest;
}

// The facts that stand in a file of this size, or the count the head claims. A fact that was gone
// from the facts base when the system was saved is counted there and has no record; the opposites
// then start earlier.
std::int64_t FactsIn(std::size_t size, const SystemHead& head) {
    const std::int64_t claimed = head.DatNum;
    const auto records = static_cast<std::int64_t>(size - sizeof(SystemHead));
    const std::int64_t facts = records - std::int64_t{head.OppNum} * std::int64_t{kNameSize};
    constexpr std::int64_t kSize = sizeof(Dat);
    const bool fits = head.OppNum > 0 && facts >= 0 && facts % kSize == 0;
    return fits && facts / kSize < claimed ? facts / kSize : claimed;
}

ReadResult Decode(std::string_view bytes, SystemFile& system) {
    system = {};
    if (bytes.size() < sizeof(SystemHead))
        return ReadResult::Useless;
    SystemHead& head = system.head;
    std::memcpy(&head, bytes.data(), sizeof(SystemHead));
    if (!CountsArePossible(head)) {
        system = {};
        return ReadResult::Useless;
    }

    // Takes the whole records that `count` claims and the file has; says whether all were there.
    // The counts are not aligned in the head, so none may be referred to.
    std::size_t at = sizeof(SystemHead);
    auto take = [&]<class Record>(std::vector<Record>& records, std::int64_t count) {
        const std::size_t there = (bytes.size() - at) / sizeof(Record);
        const auto claimed = static_cast<std::size_t>(count);
        const std::size_t taken = std::min(there, claimed);
        records.resize(taken);
        if (taken > 0)
            std::memcpy(records.data(), bytes.data() + at, taken * sizeof(Record));
        at += taken * sizeof(Record);
        return taken == claimed;
    };
    const std::int64_t facts = FactsIn(bytes.size(), head);
    const bool facts_whole = take(system.facts, facts) && facts == head.DatNum;
    const bool opposites_whole = take(system.opposites, head.OppNum);
    head.DatNum = static_cast<std::int32_t>(system.facts.size());
    head.OppNum = static_cast<std::int32_t>(system.opposites.size());
    return facts_whole && opposites_whole ? ReadResult::Ok : ReadResult::Damaged;
}

} // namespace

ReadResult ReadSystem(const char* path, SystemFile& system) {
    system = {};
    std::string bytes;
    if (!files::ReadWhole(path, files::Mode::Update, bytes))
        return ReadResult::Missing;
    return Decode(bytes, system);
}

SystemFile SystemIn(std::string_view bytes) {
    SystemFile system;
    Decode(bytes, system);
    return system;
}

std::string SystemBytes(const SystemFile& system) {
    std::string bytes(BytesOf(system.head));
    bytes += BytesOf(system.facts);
    bytes += BytesOf(system.opposites);
    return bytes;
}

bool AddCopies(files::Replacement& files, const SystemCopies& copies) {
    if (copies.lost_variables.size() >= kNameSize)
        return files::NameTooLong();
    if (!copies.lost_variables.empty())
        files.TakeAway(copies.lost_variables, files::Before::Kept);
    return AddMove(files, copies.variables) && AddMove(files, copies.initial_facts);
}

void RemoveMoved(const SystemCopies& copies) {
    RemoveMoved(copies.variables);
    RemoveMoved(copies.initial_facts);
}

bool SaveSystem(const char* path, const SystemFile& system, const SystemCopies& copies) {
    files::Replacement files;
    files.Put(path, SystemBytes(system), files::Before::Kept);
    if (!AddCopies(files, copies) || !files.CarryOut())
        return false;
    RemoveMoved(copies);
    return true;
}

OppositePair SplitOpposite(std::string_view entry) {
    const std::size_t tab = entry.find('\t');
    if (tab == std::string_view::npos)
        return {std::string(entry), {}};
    return {std::string(entry.substr(0, tab)), std::string(entry.substr(tab + 1))};
}
