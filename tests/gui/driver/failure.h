// Something the driver waited for or looked at was not as expected. Tests report it as their
// failure, tools end with it.
#pragma once

#include <functional>
#include <stdexcept>
#include <string>

namespace gui {

class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Called just before a Failure is thrown, while everything is still on the screen.
void OnFailure(std::function<void()> callback);

[[noreturn]] void Fail(const std::string& what);

} // namespace gui
