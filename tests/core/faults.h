// One file operation that fails.
#pragma once

#include "shell/core/files.h"

namespace zentrik_test {

// While it lives the file operation with this number, counted from 1, fails once.
class FaultyOperation {
public:
    explicit FaultyOperation(std::int64_t number) : number_(number) {
        files::FailOperation(number);
    }
    FaultyOperation(const FaultyOperation&) = delete;
    FaultyOperation& operator=(const FaultyOperation&) = delete;
    ~FaultyOperation() { files::FailOperation(0); }

    // False when there were fewer operations.
    bool Happened() const { return files::Operations() >= number_; }

private:
    std::int64_t number_;
};

} // namespace zentrik_test
