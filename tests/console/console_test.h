// What the tests of the console program share: a drive C: in a folder, and runs of a command.
#pragma once

#include "../core/core_test.h"

#include "console/command_line.h"
#include "console/form/drives.h"
#include "shell/core/files.h"

#include <random>
#include <unistd.h>

namespace zentrik_test {

// Where files are quick to write, for many of them. No program starts from there on every system.
inline std::filesystem::path MemoryFolder() {
    const std::filesystem::path memory = "/dev/shm";
    std::error_code none;
    const auto room = std::filesystem::space(memory, none);
    constexpr std::uintmax_t kEnough = 32 << 20;
    return !none && room.available >= kEnough && access(memory.c_str(), W_OK) == 0
               ? memory
               : std::filesystem::temp_directory_path();
}

// While it lives, the rights of files count for this process as for any other: the superuser's pass
// over them.
class WithoutRights {
public:
    WithoutRights() : was_(geteuid()) {
        constexpr uid_t kNobody = 65534;
        if (was_ == 0)
            EXPECT_EQ(seteuid(kNobody), 0);
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;
    ~WithoutRights() { EXPECT_EQ(seteuid(was_), 0); }

private:
    const uid_t was_;
};

// How a command ended and what it said.
struct Ran {
    int code;
    std::string out;
    std::string err;
};

// A folder that is drive C: of the commands.
class Console : public testing::Test {
protected:
    // With a folder that tests share, or one of its own.
    explicit Console(const TempFolder* shared = nullptr)
        : own_(shared != nullptr ? nullptr : std::make_unique<TempFolder>(MemoryFolder())),
          temp(shared != nullptr ? *shared : *own_) {
        std::filesystem::create_directory(temp.Path("drive_c"));
        console::UseDrives({{'C', Host("")}}, {});
    }
    ~Console() override { files::SetPathMap(nullptr); }

    // A path on the drive, with '/', as the host has it.
    std::string Host(const std::string& path) const {
        return temp.Path(path.empty() ? "drive_c" : "drive_c/" + path);
    }

    void Put(const std::string& path, std::string_view content) const {
        std::filesystem::create_directories(std::filesystem::path(Host(path)).parent_path());
        temp.Put("drive_c/" + path, content);
    }
    std::string Content(const std::string& path) const { return temp.Content("drive_c/" + path); }

    static Ran Run(const std::vector<std::string>& words) {
        std::ostringstream out, err;
        const int code = console::Run(words, {out, err});
        return {code, out.str(), err.str()};
    }

    void SetRights(const std::string& path, unsigned rights) const {
        std::filesystem::permissions(Host(path), std::filesystem::perms{rights});
    }

    // Every file of a folder of the drive with its content.
    std::map<std::string, std::string> Files(const std::string& path) const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Host(path))) {
            if (!entry.is_regular_file())
                continue;
            const std::string name = entry.path().string().substr(Host(path).size() + 1);
            files[name] = Content(path + "/" + name);
        }
        return files;
    }

private:
    const std::unique_ptr<TempFolder> own_;

protected:
    const TempFolder& temp;
};

// Stopped: exit code 2, and one line that names `what`.
inline void ExpectStopped(const Ran& ran, const std::string& what) {
    EXPECT_EQ(ran.code, 2) << ran.out;
    EXPECT_EQ(std::count(ran.err.begin(), ran.err.end(), '\n'), 1) << ran.err;
    EXPECT_TRUE(ran.err.starts_with("zentrikc: ")) << ran.err;
    EXPECT_NE(ran.err.find(what), std::string::npos) << ran.err;
}

} // namespace zentrik_test
