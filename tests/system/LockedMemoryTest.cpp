// How the program's own mlock locks memory. It stands in for the system's where libraries ask for it.
#include <gtest/gtest.h>

#include <dlfcn.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace velluto::test {
namespace {

class LockedMemory : public testing::Test {
protected:
    LockedMemory() : memory_(::mmap(nullptr, kPages * page_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {}
    ~LockedMemory() override { ::munmap(memory_, kPages * page_); }

    // As JACK's library has all of a server's memory locked when a client opens: by the call that it finds.
    [[nodiscard]] int Lock() const
    {
        const auto found = reinterpret_cast<int (*)(const void *, std::size_t)>(::dlsym(RTLD_DEFAULT, "mlock"));
        return found(memory_, kPages * page_);
    }
    void Touch() const { *static_cast<char *>(memory_) = 1; }
    // How many of its pages are there.
    [[nodiscard]] std::ptrdiff_t Taken() const
    {
        std::array<unsigned char, kPages> pages{};
        EXPECT_EQ(::mincore(memory_, kPages * page_, pages.data()), 0);
        return std::ranges::count_if(pages, [](unsigned char flags) { return (flags & 1U) != 0; });
    }

    static constexpr std::size_t kPages = 8;

private:
    const std::size_t page_ = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    void *const memory_;
};

TEST_F(LockedMemory, IsTakenPageByPageAsItIsTouched)
{
    ASSERT_EQ(Lock(), 0);
    EXPECT_EQ(Taken(), 0);
    Touch();
    EXPECT_EQ(Taken(), 1);
}

// From now on the system answers as one that does not know mlock2, to this process alone.
bool ForgetMlock2(int error)
{
    std::array<sock_filter, 4> steps{{
        {BPF_LD | BPF_W | BPF_ABS, 0, 0, offsetof(seccomp_data, nr)},
        {BPF_JMP | BPF_JEQ | BPF_K, 0, 1, SYS_mlock2},
        {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(error)},
        {BPF_RET | BPF_K, 0, 0, SECCOMP_RET_ALLOW},
    }};
    const sock_fprog program{steps.size(), steps.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST_F(LockedMemory, IsTakenAtOnceWhereTheSystemKnowsNoOtherWay)
{
    for (const int error : {ENOSYS, EINVAL}) {
        const auto tryIt = [&] {
            const bool forgot = ForgetMlock2(error);
            std::_Exit(!forgot ? 2 : (Lock() == 0 && Taken() == static_cast<std::ptrdiff_t>(kPages) ? 0 : 1));
        };
        EXPECT_EXIT(tryIt(), testing::ExitedWithCode(0), "") << error;
    }
}

} // namespace
} // namespace velluto::test
