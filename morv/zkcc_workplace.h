// What the steps of a build share.
#pragma once

#include "command_line.h"
#include "zkcc_cache.h"
#include "zkcc_messages.h"
#include "zkcc_screen.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace morv {

struct Workplace {
    Workplace(const Job& the_job, Screen& the_screen);

    // Takes down what went wrong beside what compilers and checks say. Returns false.
    bool Fail(const std::string& text);

    // A file of the cache that does not outlive this build.
    std::filesystem::path Passing(std::size_t number, const char* extension) const;

    const Job& job;
    Screen& screen;
    Cache cache;
    std::unique_ptr<Messages> messages; // once the rules are read
    std::vector<std::string> failed;
};

} // namespace morv
