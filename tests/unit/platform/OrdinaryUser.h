// An ordinary user's rights, for the tests of what may not be written. POSIX alone.
#pragma once

#include <cstdlib>
#include <unistd.h>

namespace velluto::test {

// While it lives the process has an ordinary user's rights, also where the tests run as root.
class AsOrdinaryUser {
public:
    AsOrdinaryUser() : before_(::geteuid())
    {
        constexpr uid_t kNobody = 65534;
        done_ = before_ != 0 || ::seteuid(kNobody) == 0;
    }
    ~AsOrdinaryUser()
    {
        if (::geteuid() != before_ && ::seteuid(before_) != 0) {
            std::abort();
        }
    }
    AsOrdinaryUser(const AsOrdinaryUser &) = delete;
    AsOrdinaryUser &operator=(const AsOrdinaryUser &) = delete;
    [[nodiscard]] bool Done() const { return done_; }

private:
    uid_t before_;
    bool done_ = false;
};

} // namespace velluto::test
