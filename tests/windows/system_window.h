// An open system, for dialogs that work on it.
#pragma once

#include "shell/services/handles.h"
#include "system/ZENSYS.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace zentrik_test {

// While it lives `System` is open under this name, with a list box of its own.
class SystemWindow {
public:
    explicit SystemWindow(const char* name = "untitled.lse") {
        System.Init();
        System.hwndSys = CreateWindowExA(0, "STATIC", "", WS_OVERLAPPEDWINDOW, 0, 0, 300, 300,
                                         nullptr, nullptr, hInst, nullptr);
        HWND list = CreateWindowExA(0, "LISTBOX", "", WS_CHILD | LBS_HASSTRINGS, 0, 0, 200, 200,
                                    System.hwndSys, nullptr, hInst, nullptr);
        EXPECT_NE(list, nullptr);
        System.NameSys(name);
        System.ShowSys();
        System.EngineState = 1;
    }
    SystemWindow(const SystemWindow&) = delete;
    SystemWindow& operator=(const SystemWindow&) = delete;
    ~SystemWindow() {
        DestroyWindow(System.hwndSys);
        System.hwndSys = System.hwndList = nullptr;
        System.Init();
    }

    static void AddFacts(const std::vector<std::string>& facts) {
        for (const std::string& fact : facts) {
            char name[kNameSize + 1];
            SetText(name, fact);
            System.NameKnw(name);
            System.DatNum += 1;
        }
        System.TitleKnw();
    }

    static std::vector<std::string> Rows() {
        std::vector<std::string> rows;
        const HWND list = GetWindow(System.hwndSys, GW_CHILD);
        for (int i = 0; i < SendMessageA(list, LB_GETCOUNT, 0, 0); ++i) {
            char text[300] = "";
            SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            rows.push_back(text);
        }
        return rows;
    }
};

} // namespace zentrik_test
