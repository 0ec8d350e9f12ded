// A guard for the flags that hold handlers off.
#pragma once

namespace velluto {

// Keeps a flag up while the program itself changes what the handlers listen to.
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
