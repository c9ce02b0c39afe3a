// The guide as pages for the browser, in the folder `help` beside the program.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <windows.h>

// Opens a page of shell/core/guide_pages.h. Returns false when it is not there or nothing opens it.
bool OpenGuide(HWND owner, std::string_view page);

// How pages are opened from now on, and where they are. Tests put their own in the place of these.
struct GuidePlace {
    std::string folder;
    std::function<bool(HWND owner, const std::string& file)> open;
};
GuidePlace SetGuidePlace(GuidePlace place); // returns what was before
