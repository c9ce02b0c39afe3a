// The sample project, generated as the Compile command does it.
#pragma once

#include "build/core/build_names.h"
#include "build/core/rules_header.h"
#include "build/core/rules_source.h"
#include "build/core/support_files.h"
#include "build/core/tools_file.h"
#include "project/core/project_file.h"
#include "tests/core/sample.h"

#include <gtest/gtest.h>

namespace morv_test {

// Writes the sample to the work folder `work`.
inline void PutSample(const std::string& work, const std::string& compiler) {
    EXPECT_EQ(zentrik_test::PutSample(work, compiler), "");
}

// Generates the files of the sample in the work folder `work`. Returns the command line of its
// compiler utility.
inline std::string Generate(const std::string& work) {
    const std::string path = work + "\\boiler\\boiler.mrv";
    ProjectFile project;
    EXPECT_EQ(ReadProject(path.c_str(), project), ReadResult::Ok);
    const BuildNames names(path.c_str());
    SystemHead head;
    ToolsFile tools;
    EXPECT_TRUE(ReadTools(ToolsFileName(work).c_str(), tools));
    const SupportInput support{project.head, names, tools.path, work, nullptr};
    EXPECT_EQ(CrearRulesH(project.head, names.rules_h.c_str(), nullptr), 0);
    EXPECT_EQ(CrearRulesCpp(project.head, head, names.rules_cpp.c_str(), names.rules_h_name.c_str(),
                            nullptr),
              0);
    EXPECT_EQ(WriteDdecom(support), 0);
    EXPECT_EQ(WriteConsts(support, head), 0);
    EXPECT_EQ(WriteMorvApi(support), 0);
    return CompilerLine(names, tools, work);
}

inline std::string GenerateSample(const std::string& work, const std::string& compiler) {
    PutSample(work, compiler);
    return Generate(work);
}

} // namespace morv_test
