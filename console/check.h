// The command "check".
#pragma once

#include "console/findings.h"
#include "console/form/report.h"

namespace console {

struct CheckOptions {
    std::string project; // a project path
    Format format = Format::Text;
    bool names = true;
};

int Check(const CheckOptions& options, const Report& report);

} // namespace console
