#include "shell/core/guide_pages.h"

#include <algorithm>
#include <iterator>

namespace {

struct DialogPage {
    std::string_view dialog;
    std::string_view page;
};

constexpr DialogPage kPages[] = {
    {"About", kGuideContents},
    {"Add_Box", "resources-of-the-system"},
    {"Dde_Box", "dde-items"},
    {"Debug_Box", "debug"},
    {"Goto_Box", kGuideTextKeys},
    {"HL_Box", "the-project"},
    {"Init_Box", "initial-facts"},
    {"Knowledge_Box", "a-system-its-facts-base-and-knowledge-types"},
    {"KnowType_Box", "a-system-its-facts-base-and-knowledge-types"},
    {"Res_Box", "results"},
    {"Result_Box", "opposites"},
    {"Rule_Box", "rules"},
    {"Tags_Box", "tags"},
    {"Tool_Box", kGuideTools},
    {"Var_Box", "local-variables"},
};

} // namespace

std::string_view GuidePageOf(std::string_view dialog) {
    const auto found = std::ranges::find(kPages, dialog, &DialogPage::dialog);
    return found == std::end(kPages) ? std::string_view() : found->page;
}
