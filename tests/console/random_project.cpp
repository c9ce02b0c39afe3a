#include "random_project.h"

#include <limits>

namespace zentrik_test {

RandomProject::RandomProject(unsigned seed, bool buildable) : random_(seed), buildable_(buildable) {
    const unsigned systems = Below(4), externs = Below(4), results = Below(4);
    std::vector<std::string> system_paths;
    for (unsigned i = 0; i < systems; ++i)
        system_paths.push_back(System(i));
    Bytes head = TextField(SourceFile("main.cpp"), kNameSize);
    for (unsigned i = 0; i <= kMaxSystems; ++i) {
        const bool used = i > 0 && i <= systems;
        head += TextField(used ? system_paths[i - 1] : OneIn(4) ? Name(200) : "", kNameSize);
    }
    for (unsigned i = 0; i <= kMaxExterns; ++i) {
        const bool used = i > 0 && i <= externs;
        head += TextField(used       ? SourceFile("sub\\extern" + std::to_string(Below(3)) + ".cpp")
                          : OneIn(4) ? "C:\\r\\p\\stale.cpp"
                                     : "",
                          kNameSize);
    }
    head += TextField(Dde(), kNameSize);
    std::string all;
    Bytes lists;
    for (unsigned i = 0; i < results; ++i) {
        const std::string path = ListFile(
            OneIn(3) ? "odd list " + std::to_string(i) : "list" + std::to_string(i) + ".rst", 6);
        lists += TextField(path, kNameSize);
        if (path.starts_with(kHome) && clean.contains(Own(path)))
            all += clean[Own(path)];
    }
    std::string chosen = kHome + std::string("p.aux");
    if (OneIn(3)) {
        chosen = ListFile(OneIn(2) ? "p.aux" : "other.aux", 5);
    } else {
        clean["p.aux"] = dirty["p.aux"] = all;
    }
    head += TextField(chosen, kNameSize);
    for (const unsigned count : {systems, externs, results})
        head += Plain(static_cast<std::int32_t>(count));
    head += Plain(OneIn(2) ? 4 : Whole());
    head += lists;
    Add("p.mrv", head);
    for (unsigned i = Below(3); i > 0; --i)
        Add("words" + std::to_string(i) + (OneIn(2) ? ".tag" : ".TAG"), Names(5));
    for (unsigned i = Below(3); i > 0; --i) {
        const std::string name = (OneIn(2) ? "long day " : "day") + std::to_string(i) +
                                 (OneIn(2) ? ".scenario" : ".Scenario");
        clean[name] = dirty[name] = Source();
    }
}

// Names of all kinds, also such as no one would choose.
std::string RandomProject::Name(std::size_t most) {
    static const std::vector<std::string> pieces = {
        "Level",    "a",    "B_2",  " ",    "  ",   "|",    "\"",
        "\\",       "=",    "@",    ";",    "[",    "]",    "\t",
        "\x01",     "\xe4", "\xff", "\x81", "\x80", "\xa0", "x=y",
        "nan",      "Rule", "'",    "#",    "0",    "\r\n", "long name that goes on ",
        "types = a"};
    std::string name;
    const unsigned kind = Below(12);
    if (kind == 0)
        return "";
    if (kind == 1) {
        for (std::size_t i = 0; i < most; ++i)
            name += static_cast<char>(1 + Below(255));
        return name;
    }
    if (kind < 7)
        return "Name" + std::to_string(Below(40));
    for (unsigned i = 1 + Below(6); i > 0; --i)
        name += pieces[Below(static_cast<unsigned>(pieces.size()))];
    return name.substr(0, most);
}

std::string RandomProject::Source() {
    static const std::vector<std::string> pieces = {"int x;",         "\r\n", "\r\n",    "// note",
                                                    "#include <a.h>", "\xfc", "ZkRules", " "};
    std::string text;
    for (unsigned i = Below(12); i > 0; --i)
        text += pieces[Below(static_cast<unsigned>(pieces.size()))];
    if (OneIn(6))
        text += OneIn(2) ? "lone\nend\r" : std::string("\r\r\n\0\n", 5);
    return text;
}

double RandomProject::Number() {
    switch (Below(6)) {
    case 0:
        return 0.0;
    case 1:
        return -0.0;
    case 2:
        return std::numeric_limits<double>::infinity();
    case 3: { // any bits, also those of no number
        const std::uint64_t bits = std::uint64_t{random_()} << 32 | random_();
        double value;
        std::memcpy(&value, &bits, sizeof value);
        return value;
    }
    default:
        return static_cast<double>(Below(100000)) / 8;
    }
}

RandomProject::Bytes RandomProject::TextField(const std::string& text, std::size_t size) {
    Bytes bytes{text.substr(0, size - 1), text.substr(0, size - 1)};
    bytes.clean.resize(size, '\0');
    bytes.dirty += '\0';
    bytes.dirty.reserve(size);
    while (bytes.dirty.size() < size)
        bytes.dirty += static_cast<char>(OneIn(2) ? 0 : Below(256));
    return bytes;
}

// The path of a file of this name, or of none, or one that leads elsewhere.
std::string RandomProject::Path(const std::string& own, bool optional) {
    if (!buildable_ && optional && OneIn(5))
        return OneIn(2)   ? ""
               : OneIn(2) ? "untitled.x"
                          : "D:\\far\\away." + std::to_string(Below(9));
    return kHome + own;
}

// Whether the file of a path is to be there.
bool RandomProject::Makes(const std::string& path) {
    return path.starts_with(kHome) && (buildable_ || !OneIn(6));
}

RandomProject::Bytes RandomProject::Names(unsigned most) {
    Bytes bytes;
    for (unsigned i = Below(most + 1); i > 0; --i)
        bytes += TextField(Name(49), 50);
    return bytes;
}

std::string RandomProject::ListFile(const std::string& own, unsigned most) {
    const std::string path = Path(own, true);
    if (Makes(path))
        Add(own, Names(most));
    return path;
}

std::string RandomProject::SourceFile(const std::string& own) {
    const std::string path = Path(own, true);
    if (Makes(path) && !clean.contains(own))
        clean[own] = dirty[own] = Source();
    return path;
}

RandomProject::Bytes RandomProject::Fact(const std::string& name) {
    Bytes bytes = TextField(name, 70);
    bytes += TextField(Name(69), 70);
    bytes += TextField(OneIn(2) ? "DETECTION" : Name(49), 50);
    bytes += TextField(Name(24), 25);
    for (int i = 0; i < 8; ++i)
        bytes += Plain(Number());
    bytes += Plain(Whole());
    bytes += Plain(OneIn(2) ? static_cast<std::int32_t>(base_.size()) + 1 : Whole());
    return bytes;
}

std::string RandomProject::Dde() {
    const std::string path = Path(OneIn(2) ? "plant.dde" : "odd dde", true);
    if (Makes(path)) {
        Bytes bytes = TextField(Name(254), kNameSize);
        for (unsigned i = Below(4); i > 0; --i) {
            bytes += TextField(Name(49), 50);
            bytes += TextField(OneIn(2) ? "int" : Name(99), 100);
        }
        Add(Own(path), bytes);
    }
    return path;
}

std::string RandomProject::System(unsigned number) {
    const std::string base = OneIn(3) ? "shared" : "s" + std::to_string(number);
    const std::string own = "s" + std::to_string(number) + ".lse";
    const std::string path = Path(own, true);
    if (!Makes(path))
        return path;
    const auto at = [&](const std::string& usual, const std::string& odd) {
        return Path(OneIn(4) ? odd : usual, true);
    };
    const std::string stem = "s" + std::to_string(number);
    Bytes head;
    const std::string types = at(stem + ".typ", base + " types");
    if (Makes(types) && !clean.contains(Own(types)))
        Add(Own(types), Names(4));
    const std::string rules = at(stem + ".rul", base + ".rules");
    std::string text = Source();
    if (OneIn(2))
        text = Renumber("Rule 1\r\nEndRule\r\nRule 2\r\n" + text).text;
    if (Makes(rules) && !clean.contains(Own(rules)))
        clean[Own(rules)] = dirty[Own(rules)] = text;
    const std::string index = at(stem + ".siz", base + " index.siz");
    if (Makes(index) && !clean.contains(Own(index))) {
        Bytes records;
        const std::string sound = IndexBytes(Renumber(text).sizes);
        if (OneIn(2)) {
            records = {sound, sound};
        } else {
            for (unsigned i = Below(3); i > 0; --i) {
                records += Plain(Whole());
                records += Plain(Whole());
                records += TextField(Name(254), 255);
                records += Plain(Whole());
            }
        }
        Add(Own(index), records);
    }
    const std::string header = OneIn(3) ? "" : SourceFile("header" + std::to_string(number) + ".h");
    const std::string variables = at(stem + ".var", base + " variables");
    if (Makes(variables) && !clean.contains(Own(variables))) {
        Bytes records;
        for (unsigned i = Below(3) * 3; i > 0; --i)
            records += TextField(Name(254), 255);
        Add(Own(variables), records);
    }
    const std::string facts = at(stem + ".fac", base + ".fac");
    base_.clear();
    base_names_.clear();
    if (Makes(facts) && !clean.contains(Own(facts))) {
        Bytes records;
        for (unsigned i = Below(6); i > 0; --i) {
            base_names_.push_back(Name(69));
            base_.push_back(Fact(base_names_.back()));
            records += base_.back();
        }
        Add(Own(facts), records);
    }
    Bytes used;
    std::vector<std::string> used_names;
    for (std::size_t i = 0; i < base_.size(); ++i) {
        if (OneIn(3))
            continue;
        used += base_[i];
        used_names.push_back(base_names_[i]);
    }
    if (OneIn(4)) {
        used_names.push_back(Name(69));
        used += Fact(used_names.back());
    }
    const std::string initial = at(stem + ".ikw", base + " initial");
    if (Makes(initial) && !clean.contains(Own(initial))) {
        Bytes records;
        const bool usual = OneIn(2);
        for (const std::string& name : used_names) {
            records += TextField(name, 255);
            const bool set = OneIn(2);
            records += TextField(set ? Name(254) : "", 255);
            records += TextField(set ? "FULL" : usual ? "  " : Name(254), 255);
        }
        Add(Own(initial), records);
    }
    Bytes opposites;
    const auto pairs = static_cast<std::int32_t>(Below(3));
    for (std::int32_t i = 0; i < pairs; ++i)
        opposites += TextField(OneIn(4) ? Name(254) : Name(49) + "\t" + Name(49), 255);
    for (const std::string& name : {types, rules, index, header, variables, initial, facts})
        head += TextField(name, kNameSize);
    const auto there = static_cast<std::int32_t>(used_names.size());
    head += Plain(OneIn(2) ? static_cast<std::int32_t>(Below(5)) : Whole());
    // A fact that is gone from its base is counted all the same.
    const bool short_of_facts = !buildable_ && pairs > 0 && OneIn(4);
    head += Plain(short_of_facts ? there + 1 : there);
    head += Plain(pairs);
    head += used;
    head += opposites;
    Add(own, head);
    return path;
}

} // namespace zentrik_test
