// What the tests of the build share: a drive C: with the program's own paths, a sample project on
// it, and golden files.
#pragma once

#include "core_test.h"

#include "project/core/project_file.h"
#include "shell/core/files.h"
#include "system/core/system_file.h"

namespace zentrik_test {

// The window that boxes of a build belong to.
inline const auto kOwner = reinterpret_cast<WindowHandle>(std::uintptr_t{16});

// An empty folder C:\zktest that is removed at the end.
class Disk {
public:
    Disk();
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;
    ~Disk();

    std::string Path(const std::string& name) const { return folder + "\\" + name; }
    void Put(const std::string& name, std::string_view content) const;
    std::string Content(const std::string& name) const; // empty when there is no such file
    void Remove(const std::string& name) const;
    void MakeFolder(const std::string& name) const;
    // Puts a folder in the place of a file, which then cannot be opened.
    void Block(const std::string& name) const;

    const std::string folder = "C:\\zktest";

#ifndef _WIN32
private:
    TempFolder drives_;
#endif
};

// One 50-byte name after the other.
std::string Tags(const std::vector<std::string>& names);

Dat SampleFact(const std::string& name, int ident);

struct Triple {
    std::string a, b, c;
};
// Records of three 255-byte names: local variables or initial facts.
std::string Triples(const std::vector<Triple>& records);

NameRecord Name(const std::string& text);

// A project with two systems, an extern file, a DDE file, results and a main file, and templates in
// the folder "morv" that say no more than their names. Nothing of it is missing.
ProjectRecord PutSampleProject(const Disk& disk);

// A system file that names no files, with no facts and opposites.
SystemFile EmptySystem();

// Puts the templates of the starter runtime in the place of the sample's, as the golden files have
// them.
void PutRuntimeTemplates(const Disk& disk);

// Compares with tests/core/golden/`project`/`name`. What differs is written beside it as
// `name`.new; take it over by hand when it is right.
void ExpectGolden(const std::string& name, const std::string& content,
                  const std::string& project = "plant");

} // namespace zentrik_test
