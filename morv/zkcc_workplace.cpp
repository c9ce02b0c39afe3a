#include "zkcc_workplace.h"

#include "run_tool.h"

namespace morv {

namespace fs = std::filesystem;

namespace {

constexpr char kCache[] = "zkcc.cache";

} // namespace

Workplace::Workplace(const Job& the_job, Screen& the_screen)
    : job(the_job), screen(the_screen), cache(the_job.project / kCache) {}

bool Workplace::Fail(const std::string& text) {
    failed.push_back(text);
    return false;
}

fs::path Workplace::Passing(std::size_t number, const char* extension) const {
    return cache.File(std::to_string(ProcessNumber()) + "-" + std::to_string(number) + extension);
}

} // namespace morv
