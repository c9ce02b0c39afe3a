// A folder whose name has a letter of no European code page.
#pragma once

#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/places.h"

#include <string>
#include <windows.h>

namespace gui {

// While it lives, the folder is this process's current one.
class ForeignFolder {
public:
    explicit ForeignFolder(const WorkFolder& work) {
        GetCurrentDirectoryW(MAX_PATH, before_);
        const std::string parent = work.Folder();
        const std::wstring folder = std::wstring(parent.begin(), parent.end()) + L"\\\u5de5";
        if (!CreateDirectoryW(folder.c_str(), nullptr) || !SetCurrentDirectoryW(folder.c_str()))
            Fail("cannot make a folder with a foreign name");
    }
    ForeignFolder(const ForeignFolder&) = delete;
    ForeignFolder& operator=(const ForeignFolder&) = delete;
    ~ForeignFolder() { SetCurrentDirectoryW(before_); }

private:
    wchar_t before_[MAX_PATH] = L"";
};

} // namespace gui
