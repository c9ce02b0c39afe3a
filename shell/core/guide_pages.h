// The pages of the guide, as scripts/make_help names them: a page for each chapter of
// docs/user-guide.md, called by its heading without the number.
#pragma once

#include <string_view>

constexpr std::string_view kGuideContents = "index"; // all pages with their chapters
constexpr std::string_view kGuideIndex = "words";    // all headings by the alphabet
constexpr std::string_view kGuideTextKeys = "rules"; // finding and replacing, the line to go to
constexpr std::string_view kGuideTools = "the-runtime-and-the-compiler";

// The page about a dialog, by the dialog's name in the resources; empty when there is none.
std::string_view GuidePageOf(std::string_view dialog);
