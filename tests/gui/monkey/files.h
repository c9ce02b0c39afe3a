// The files of a run: a small project, damaged and read-only copies of it, and witnesses, which are
// never named to the program.
#pragma once

#include "tests/gui/driver/places.h"
#include "tests/gui/monkey/dice.h"

#include <map>
#include <string>

namespace monkey {

class Files {
public:
    explicit Files(Dice& dice);

    const gui::WorkFolder& Work() const { return work_; }

    // A name to type into a file dialog that asks for files with `extension`: mostly one of those,
    // sound, damaged, read-only or new, now and then anything else.
    std::string AnyName(Dice& dice, const std::string& extension) const;

    // The witness or read-only file that is not as it was; empty when all are.
    std::string Touched() const;

private:
    void PutDamaged(Dice& dice);
    void PutKept();
    void Keep(const std::string& path);

    gui::WorkFolder work_;
    gui::WorkFolder witnesses_;
    std::map<std::string, std::string> kept_; // path and content
};

} // namespace monkey
