// The system file and its opposites.
#include "system/core/system_file.h"
#include "tests/fuzz/fuzz.h"

void Fuzz(std::string_view input) {
    SystemFile system;
    const ReadResult result = ReadSystem(fuzz::FileOf(input).c_str(), system);
    if (result == ReadResult::Missing || result == ReadResult::Useless)
        return;
    fuzz::Holds(static_cast<std::size_t>(system.head.DatNum) == system.facts.size(),
                "the facts are counted");
    fuzz::Holds(static_cast<std::size_t>(system.head.OppNum) == system.opposites.size(),
                "the opposites are counted");
    for (const NameRecord& entry : system.opposites) {
        const std::string text = Text(entry.name);
        const OppositePair pair = SplitOpposite(text);
        fuzz::Holds(text == pair.result || text == pair.result + "\t" + pair.opposite,
                    "the two parts of an opposite are all of it");
    }

    const std::string written = SystemBytes(system);
    fuzz::Holds(result != ReadResult::Ok || input.starts_with(written),
                "a sound system is written as it was");
    SystemFile again;
    fuzz::Holds(ReadSystem(fuzz::FileOf(written).c_str(), again) == ReadResult::Ok,
                "what was written is sound");
    fuzz::Holds(SystemBytes(again) == written,
                "a system written, read and written again has the same bytes");
}
