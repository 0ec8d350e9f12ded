// A run of the program over a settings file that the test has written out.
#pragma once

#include "unit/app/IniFile.h"

#include <gtest/gtest.h>

namespace velluto::test {

struct SettingsFileRun : testing::Test {
    TestProgram run;
    IniFile ini = IniFile::Created(2);
    Settings &settings = run.program.app.settings;

    void Start()
    {
        ini.WriteTo(run);
        ASSERT_TRUE(run.Start());
        ASSERT_EQ(run.languageQuestions, 0);
    }
    IniFile ExitAndRead()
    {
        EXPECT_TRUE(run.Exit());
        return IniFile::Of(run);
    }
};

} // namespace velluto::test
