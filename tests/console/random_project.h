// Projects made up at random, with every kind of file and every kind of name.
#pragma once

#include "console_test.h"

#include "project/core/project_file.h"
#include "resources/core/dde_item.h"
#include "resources/core/variable.h"
#include "system/core/rule_index.h"
#include "system/core/rule_text.h"
#include "system/core/system_file.h"

namespace zentrik_test {

// The files of a project in the folder C:\r\p, by their names there. `dirty` has anything behind
// the ends of texts where `clean` has zeros.
class RandomProject {
public:
    // With `buildable` every source and list that Compile needs is there.
    RandomProject(unsigned seed, bool buildable);

    std::map<std::string, std::string> clean, dirty;

private:
    static constexpr const char* kHome = "C:\\r\\p\\";

    unsigned Below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    bool OneIn(unsigned n) { return Below(n) == 0; }

    std::string Name(std::size_t most);
    std::string Source();
    double Number();
    std::int32_t Whole() { return static_cast<std::int32_t>(random_()); }

    // A record's bytes, clean and dirty.
    struct Bytes {
        std::string clean, dirty;
        Bytes& operator+=(const Bytes& more) {
            clean += more.clean;
            dirty += more.dirty;
            return *this;
        }
    };
    Bytes TextField(const std::string& text, std::size_t size);
    template <class Value> static Bytes Plain(const Value& value) {
        const std::string bytes(reinterpret_cast<const char*>(&value), sizeof value);
        return {bytes, bytes};
    }
    void Add(const std::string& name, const Bytes& bytes) {
        clean[name] = bytes.clean;
        dirty[name] = bytes.dirty;
    }

    std::string Path(const std::string& own, bool optional);
    bool Makes(const std::string& path);
    std::string Own(const std::string& path) const {
        return path.substr(std::string(kHome).size());
    }
    Bytes Names(unsigned most);
    Bytes Fact(const std::string& name);
    std::string ListFile(const std::string& own, unsigned most);
    std::string SourceFile(const std::string& own);
    std::string System(unsigned number);
    std::string Dde();

    std::mt19937 random_;
    bool buildable_;
    std::vector<Bytes> base_; // the facts of the last base
    std::vector<std::string> base_names_;
};

} // namespace zentrik_test
