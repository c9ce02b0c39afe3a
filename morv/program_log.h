// The log of a program: each line with its time of day.
#ifndef MORV_PROGRAM_LOG
#define MORV_PROGRAM_LOG

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace morv {

class ProgramLog {
public:
    using Clock = std::function<std::string()>;

    // Goes on with the log at `path`; what is in it stays. When it has become `most` bytes long it
    // becomes the older log, PATH.old.log, in place of the one before. The clock tells day and time
    // as "2026-01-31 23:59:59". Without a log that can be written, lines go nowhere.
    ProgramLog(std::filesystem::path path, Clock clock, std::uintmax_t most = 10'000'000);

    bool IsOpen() const { return file_.is_open(); }
    void Write(const std::string& line);
    void Flush(); // what was written is in the file then; it is also at the end

    static std::filesystem::path OlderName(const std::filesystem::path& path);

private:
    void Put(const std::string& line);
    void Open();
    void BeginAnew();

    const std::filesystem::path path_;
    const Clock clock_;
    const std::uintmax_t most_;
    std::ofstream file_;
    std::uintmax_t size_ = 0;
    std::string day_; // of the line before
};

} // namespace morv

#endif
