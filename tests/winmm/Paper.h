// How the tests of Windows' adapters talk to the winmm.dll on paper that lies beside their program.
#pragma once

#include "platform/windows/Windows.h"

#include <gtest/gtest.h>

#include <string>

namespace velluto::test {

// Obeys one command (see Machine.h) and gives the log so far.
inline std::string Paper(const std::string &command)
{
    using Obey = const char *(*)(const char *);
    const auto obey = reinterpret_cast<Obey>(reinterpret_cast<void *>(::GetProcAddress(::GetModuleHandleW(L"winmm.dll"), "StandinWinmm")));
    EXPECT_NE(obey, nullptr) << "this is the system's own winmm.dll";
    return obey != nullptr ? obey(command.c_str()) : "";
}

} // namespace velluto::test
