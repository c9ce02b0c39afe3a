// A small project of real files, made for tests with the program's own record layouts.
#pragma once

#include "project/core/project_file.h"
#include "tests/gui/driver/places.h"

#include <string>
#include <vector>

namespace gui {

// Puts into the folder: plant.mrv with main.cpp, tank.lse, help.cpp, link.dde and names.rst;
// tank.lse has tank.rul (two sound rules), tank.siz, tank.fac (facts Level and Valve), tank.typ
// (PROCESS), the opposites HIGH/LOW and the header head.cpp; and plant.aux with HIGH and LOW.
void PutSampleProject(const WorkFolder& work);

// A system file with this rules file (no other resources), whose rules have the given texts;
// the rules file holds them back to back. The index file is made beside it.
void PutSystem(const WorkFolder& work, const std::string& base,
               const std::vector<std::string>& rules);

// The templates of the runtime, in the folder `morv` of the work folder, and a tools file that
// names it with the compiler command `com`.
void PutTools(const WorkFolder& work, const std::string& com);

// A project file; names are full paths.
struct ProjectSpec {
    std::string main;
    std::vector<std::string> systems;
    std::vector<std::string> externs;
    std::string dde;
    std::string aux;
    std::vector<std::string> results;
};
ProjectFile MakeProject(const ProjectSpec& spec);
void PutProject(const std::string& path, const ProjectSpec& spec);

// The fixed part of a project file on disk; zeros when the file is shorter.
ProjectRecord ProjectHead(const std::string& path);

// Names as a file of 50-byte records.
std::string TagBytes(const std::vector<std::string>& names);

} // namespace gui
