#include "program_log.h"

#include <utility>

namespace morv {

namespace fs = std::filesystem;

ProgramLog::ProgramLog(fs::path path, Clock clock, std::uintmax_t most)
    : path_(std::move(path)), clock_(std::move(clock)), most_(most) {
    Open();
}

fs::path ProgramLog::OlderName(const fs::path& path) {
    fs::path older = path;
    return older.replace_extension(".old.log");
}

void ProgramLog::Open() {
    file_.clear();
    file_.open(path_, std::ios::binary | std::ios::app);
    std::error_code error;
    size_ = fs::file_size(path_, error);
    if (error)
        size_ = 0;
}

// Where another program has the log open it cannot be moved, but copied.
void ProgramLog::BeginAnew() {
    file_.close();
    std::error_code error;
    fs::rename(path_, OlderName(path_), error);
    if (error)
        fs::copy_file(path_, OlderName(path_), fs::copy_options::overwrite_existing, error);
    fs::resize_file(path_, 0, error);
    Open();
    day_.clear();
}

void ProgramLog::Put(const std::string& line) {
    if (file_ << line << "\r\n")
        size_ += line.size() + 2;
}

void ProgramLog::Write(const std::string& line) {
    const std::string now = clock_();
    const std::size_t blank = now.find(' ');
    const std::string day = now.substr(0, blank), time = now.substr(blank + 1);
    if (size_ + line.size() > most_)
        BeginAnew();
    if (std::exchange(day_, day) != day)
        Put(time + " " + day);
    Put(time + " " + line);
}

void ProgramLog::Flush() {
    file_.flush();
    file_.clear(); // a disk that was full may have room again
}

} // namespace morv
