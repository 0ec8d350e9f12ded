// A row click with the monitor closed must not wait for the heap.
#include "RecallLink.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

long allocations = 0;

} // namespace

// Not inlined: the compiler would see free() take back what an operator new gave out.
[[gnu::noinline]] void *operator new(std::size_t size)
{
    ++allocations;
    if (void *block = std::malloc(size == 0 ? 1 : size)) {
        return block;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void *block) noexcept
{
    std::free(block);
}

[[gnu::noinline]] void operator delete(void *block, std::size_t /*size*/) noexcept
{
    std::free(block);
}

namespace velluto::test {
namespace {

TEST(Allocation, ARowClickWithTheMonitorClosedAllocatesNothing)
{
    RecallLink link;
    link.devices.sent.reserve(16);
    ListWindow window(14, 9);
    const long before = allocations;
    SelectOnInstrument(link.recall, window, 4);
    EXPECT_EQ(allocations - before, 0);
    EXPECT_EQ(link.devices.sent.size(), 3U);
}

} // namespace
} // namespace velluto::test
