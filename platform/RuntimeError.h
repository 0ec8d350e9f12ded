// How an operation of the machine failed, as a number. Every port that can fail answers with one.
#pragma once

namespace velluto {

// The run-time error of an operation; number 0 is success.
struct RuntimeError {
    int number = 0;
    [[nodiscard]] bool Failed() const { return number != 0; }
};

} // namespace velluto
