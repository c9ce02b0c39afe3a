// The files that a project is made from, so far as a build could write over them.
#pragma once

#include "build/core/build_names.h"
#include "project/core/project_file.h"

// The first of the files that a build writes that is also a main, extern, header or rules file of
// the project.
enum class Overwritten { Nothing, RulesHeader, RulesSource, SupportFile };

Overwritten WouldOverwrite(const ProjectRecord& project, const BuildNames& names,
                           const std::string& morv_path, const std::string& work_path);
