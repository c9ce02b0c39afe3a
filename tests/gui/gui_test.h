// What the tests of the shipped program share: the program as a member, so that it is still on the
// screen when a failure is pictured.
#pragma once

#include "tests/gui/driver/app.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace gui {

using TextRows = std::vector<std::string>;

// The row of an item in a document's list: its text behind a TAB.
inline std::string Item(const std::string& text) {
    return std::string("\t").append(text);
}

class GuiTest : public testing::Test {
protected:
    App& Run(Kind kind = Kind::Nt, const App::Setup& setup = {}) {
        app_.emplace(kind, setup);
        return *app_;
    }
    App& Running() { return *app_; }

private:
    std::optional<App> app_;
};

} // namespace gui
