// The facts base: facts are read, replaced, added and taken out. The input is what is done, where,
// and the file.
#include "resources/core/fact_texts.h"
#include "resources/core/facts_file.h"
#include "tests/fuzz/fuzz.h"

namespace {

// A fact as its editor shows and stores it.
Dat Edited(const Dat& fact) {
    return FactOf(TextsOf(fact));
}

void CheckEditing(const Dat& fact) {
    const Dat once = Edited(fact);
    fuzz::Holds(BytesOf(Edited(once)) == BytesOf(once),
                "a fact that was edited once is edited again without a change");
}

void Replace(const char* path, std::size_t index, std::size_t facts) {
    Dat fact{};
    SetText(fact.Name, "replaced");
    const int at = ReplaceFact(path, index, fact);
    fuzz::Holds(at == static_cast<int>(std::min(index, facts)),
                "a fact goes where it was, or behind");
    Dat read;
    fuzz::Holds(ReadFact(path, static_cast<std::size_t>(at), read) &&
                    BytesOf(read) == BytesOf(fact),
                "a fact that was replaced is read as it was written");
}

void Add(const char* path, std::size_t facts) {
    Dat fact{};
    SetText(fact.Name, "added");
    fuzz::Holds(AppendFact(path, fact) == static_cast<int>(facts), "a new fact is the last one");
}

void Remove(const char* path, std::size_t index, std::string bytes) {
    const std::size_t facts = bytes.size() / sizeof(Dat);
    const Removal removal = RemoveFact(path, index);
    fuzz::Holds(removal == (index < facts ? Removal::Done : Removal::NoSuchFact),
                "a fact that is there is taken out");
    if (removal != Removal::Done)
        return;
    bytes.erase(index * sizeof(Dat), sizeof(Dat));
    fuzz::Holds(facts == 1 ? !files::Exists(path) : fuzz::ContentOf(path) == bytes,
                "the other facts stay as they are");
}

} // namespace

void Fuzz(std::string_view bytes) {
    fuzz::Input input(bytes);
    const std::size_t action = input.Byte();
    const std::size_t index = input.Byte() % 40;
    const std::string path = fuzz::FileOf(input.Rest());
    const std::vector<Dat> facts = RecordsIn<Dat>(input.Rest());
    for (std::size_t i = 0; i <= facts.size(); ++i) {
        Dat fact;
        fuzz::Holds(ReadFact(path.c_str(), i, fact) == (i < facts.size()), "whole facts are read");
        if (i < facts.size())
            CheckEditing(fact);
    }
    NextIdent(facts);
    switch (action % 3) {
    case 0:
        return Replace(path.c_str(), index, facts.size());
    case 1:
        return Add(path.c_str(), facts.size());
    default:
        return Remove(path.c_str(), index, std::string(input.Rest()));
    }
}
