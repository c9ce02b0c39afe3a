// The generated support files: the runtime's templates with the project's own lines between them.
#pragma once

#include "build/core/build_names.h"
#include "project/core/project_file.h"
#include "shell/core/window_handle.h"
#include "system/core/system_file.h"

struct SupportInput {
    const ProjectRecord& project;
    const BuildNames& names;
    std::string morv_path; // templates, and where MorvApi.h goes
    std::string work_path; // where the scratch file Ktype.tmp goes
    WindowHandle owner;    // of every box shown
};

// Each returns 0, or -1 after showing why; what was written until then stays. WriteConsts reads the
// knowledge types file name of each system into `last_read`.
int WriteDdecom(const SupportInput& in);
int WriteConsts(const SupportInput& in, SystemHead& last_read);
int WriteMorvApi(const SupportInput& in);
