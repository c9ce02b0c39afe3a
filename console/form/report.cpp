#include "console/form/report.h"

#include "console/form/drives.h"
#include "shell/core/files.h"

#include <cerrno>
#include <cstring>

namespace console {

int Report::Stop(const std::string& file, const std::string& reason) const {
    err << OneLine("zentrikc: " + (file.empty() ? "" : HostText(file) + ": ") + reason) << '\n';
    return kStopped;
}

std::string LastReason() {
    return std::strerror(files::LastError());
}

bool IsNotThere(const std::string& path) {
    return files::LastError() != EACCES && !files::Exists(path.c_str());
}

std::string OneLine(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7f')
            c = ' ';
    return text;
}

} // namespace console
