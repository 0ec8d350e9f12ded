// The file that keeps the numbers of devices: what it says, and what is made of one that others have written.
#include "platform/music/KnownDevices.h"

#include "platform/machine/MachineFiles.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace velluto::test {
namespace {

using testing::ElementsAre;

const KnownDevices kKnown{{{0, false, "Velluto Synthesizer"}, {3, true, "PA80:PA80 MIDI 1 24:0"}}, {{1, false, "Tasti \xC3\xA8"}}};
const char *const kText = "out 0 - Velluto Synthesizer\nout 3 * PA80:PA80 MIDI 1 24:0\nin 1 - Tasti \xC3\xA8\n";

TEST(KnownDevices, ALineForEachDeviceTellsItsNumberAndItsName)
{
    EXPECT_EQ(KnownDevicesText(kKnown), kText);
    EXPECT_EQ(ParseKnownDevices(kText), kKnown);
}

TEST(KnownDevices, ANameThatNoLineCanHoldIsNotWritten)
{
    EXPECT_EQ(KnownDevicesText({{{0, false, "two\nlines"}, {1, false, ""}, {2, false, std::string(2000, 'x')}}, {}}), "");
}

TEST(KnownDevices, LinesOfOthersArePassedOver)
{
    for (const char *line : {"", "out", "out 0", "out 0 -", "out 0 - ", "out 7 - a", "out -1 - a", "out 10 - a", "out x - a", "out 0 + a",
                             "out 0  - a", "OUT 0 - a", "both 0 - a", "out 0 - a\x01", "\xFF\xFE\x00"}) {
        EXPECT_EQ(ParseKnownDevices(line), KnownDevices()) << line;
    }
    EXPECT_EQ(ParseKnownDevices("nonsense\n" + std::string(kText) + "out 5").outs, kKnown.outs);
}

TEST(KnownDevices, ANumberIsTheFirstOnesThatClaimsIt)
{
    EXPECT_THAT(ParseKnownDevices("in 4 - late\nin 2 - a\nin 2 - b\n").ins,
                ElementsAre(KnownDevice{2, false, "a"}, KnownDevice{4, false, "late"}));
}

TEST(KnownDevices, WhatWasWrittenIsReadAndNothingElseIsLeft)
{
    const TempFolder folder;
    MachineFiles files;
    const std::string path = folder.At("devices \xC3\xA8.txt");
    EXPECT_EQ(ReadKnownDevices(files, path), KnownDevices());
    WriteBytes(path, {'o', 'l', 'd'});
    WriteKnownDevices(path, kKnown);
    EXPECT_EQ(ReadKnownDevices(files, path), kKnown);
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
}

TEST(KnownDevices, AFileThatCannotBeWrittenStaysAsItWas)
{
    const TempFolder folder;
    MachineFiles files;
    const std::string path = folder.At("devices.txt");
    WriteKnownDevices(path, kKnown);
    std::filesystem::create_directory(path + ".new");
    WriteBytes(path + ".new/kept", {'x'});
    WriteKnownDevices(path, {});
    EXPECT_EQ(ReadKnownDevices(files, path), kKnown);
    WriteKnownDevices(folder.At("nowhere/devices.txt"), kKnown);
    EXPECT_FALSE(std::filesystem::exists(folder.At("nowhere")));
}

#ifndef _WIN32 // whose folders hold no pipes
TEST(KnownDevices, APipeOfTheNameThatIsWrittenFirstIsNotWaitedFor)
{
    const TempFolder folder;
    MachineFiles files;
    const std::string path = folder.At("devices.txt");
    ASSERT_EQ(::mkfifo((path + ".new").c_str(), 0600), 0);
    WriteKnownDevices(path, kKnown);
    EXPECT_EQ(ReadKnownDevices(files, path), kKnown);
}
#endif

TEST(KnownDevices, AFileOfUnlikelyLengthIsForeign)
{
    const TempFolder folder;
    MachineFiles files;
    const std::string path = folder.At("devices.txt");
    WriteKnownDevices(path, kKnown);
    std::filesystem::resize_file(path, 65537);
    EXPECT_EQ(ReadKnownDevices(files, path), KnownDevices());
}

} // namespace
} // namespace velluto::test
