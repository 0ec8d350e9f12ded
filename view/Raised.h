// A guard for the flags that hold handlers off. Used wherever the program changes what its own handlers listen to.
#pragma once

namespace velluto {

// Keeps a flag up, and lowers it at the end. It does not put back what was there before, on purpose: a flag that was left
// up, as the player's previous button does, is lowered by the next who raises it.
class Raised {
public:
    explicit Raised(bool &flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }
    Raised(const Raised &) = delete;
    Raised &operator=(const Raised &) = delete;

private:
    bool &flag_;
};

} // namespace velluto
