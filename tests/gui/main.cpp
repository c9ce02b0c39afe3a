// Runs the tests that drive the program from outside. The first failure of a test leaves a picture
// of the screen in screenshots\ of the out folder.
#include "tests/gui/driver/failure.h"
#include "tests/gui/driver/places.h"
#include "tests/gui/driver/screenshot.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

class Screenshots : public testing::EmptyTestEventListener {
public:
    void OnTestStart(const testing::TestInfo&) override { taken_ = false; }

    void OnTestPartResult(const testing::TestPartResult& result) override {
        if (result.failed())
            Take();
    }

    void Take() {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        if (taken_ || !test)
            return;
        taken_ = true;
        const std::string folder = gui::OutFolder() + "\\screenshots";
        gui::MakeFolders(folder);
        std::string name = std::string(test->test_suite_name()) + "_" + test->name();
        std::ranges::replace(name, '/', '_'); // of tests with parameters
        gui::SaveScreenshot(folder + "\\" + name + ".bmp");
    }

private:
    bool taken_ = false;
};

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    auto* screenshots = new Screenshots; // gtest owns it
    testing::UnitTest::GetInstance()->listeners().Append(screenshots);
    gui::OnFailure([screenshots] { screenshots->Take(); });
    return RUN_ALL_TESTS();
}
