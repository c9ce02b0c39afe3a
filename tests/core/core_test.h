// What the core tests share: a passing folder, and a recorder of message boxes.
#pragma once

#include "shell/core/messages.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace zentrik_test {

// A folder of its own that is removed at the end.
class TempFolder {
public:
    explicit TempFolder(
        const std::filesystem::path& base = std::filesystem::temp_directory_path()) {
        static int number = 0;
        do {
            folder_ = base / ("zentrik_test_" + std::to_string(std::rand()) + "_" +
                              std::to_string(++number));
        } while (!std::filesystem::create_directory(folder_));
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    // One of this name, which stays.
    struct Kept {
        std::filesystem::path folder;
    };
    explicit TempFolder(const Kept& kept) : folder_(kept.folder), stays_(true) {
        std::filesystem::create_directories(folder_);
    }
    ~TempFolder() {
        std::error_code ignored;
        if (!stays_)
            std::filesystem::remove_all(folder_, ignored);
    }

    // The path of a file in the folder; it need not exist.
    std::string Path(const std::string& name) const { return (folder_ / name).string(); }

    void Put(const std::string& name, std::string_view content) const {
        std::ofstream(folder_ / name, std::ios::binary) << content;
    }

    std::string Content(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(folder_ / name, std::ios::binary).rdbuf();
        return text.str();
    }

private:
    std::filesystem::path folder_;
    const bool stays_ = false;
};

// While it lives, message boxes are recorded and answered instead of shown.
class Boxes {
public:
    explicit Boxes(Answer answer = Answer::Ok)
        : before_(SetMessageShower([this, answer](const Message& message) {
              shown.push_back(message.caption + ": " + message.text);
              messages.push_back(message);
              return answer;
          })) {}
    Boxes(const Boxes&) = delete;
    Boxes& operator=(const Boxes&) = delete;
    ~Boxes() { SetMessageShower(before_); }

    std::vector<std::string> shown; // "caption: text"
    std::vector<Message> messages;

private:
    MessageShower before_;
};

} // namespace zentrik_test
