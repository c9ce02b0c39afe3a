#include "tests/gui/driver/failure.h"

namespace gui {

namespace {

std::function<void()> on_failure;

} // namespace

void OnFailure(std::function<void()> callback) {
    on_failure = std::move(callback);
}

void Fail(const std::string& what) {
    if (on_failure)
        on_failure();
    throw Failure(what);
}

} // namespace gui
