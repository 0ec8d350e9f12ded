// What the sequencer says of the files that it is given.
#include "unit/platform/SequencerOnPaper.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace velluto::test {
namespace {

using Why = Refusal::Why;

struct MachineSequencerFilesTest : SequencerOnPaper {};

TEST_F(MachineSequencerFilesTest, AFileThatIsNotThereIsNotFound)
{
    Open(folder.At("nothing.mid"));
    EXPECT_EQ(sequencer->Error(), SequencerError::kFileNotFound);
    EXPECT_EQ(sequencer->Reason().why, Why::NotFound);
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(heard.shown, 0);
}

TEST_F(MachineSequencerFilesTest, ADamagedFileIsRefusedForTheReadersReason)
{
    Open(Place({'M', 'T', 'h', 'd'}));
    EXPECT_EQ(sequencer->Error(), SequencerError::kInvalidFile);
    EXPECT_EQ(sequencer->Reason().why, Why::HeaderShort);
    EXPECT_EQ(sequencer->Length(), 0);
}

TEST_F(MachineSequencerFilesTest, AFolderIsNotRead)
{
    Open(folder.Path());
    EXPECT_EQ(sequencer->Reason().why, Why::NotReadable);
}

#ifndef _WIN32 // whose folders hold no pipes
TEST_F(MachineSequencerFilesTest, APipeIsNotRead)
{
    const std::string pipe = folder.At("pipe.mid");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    Open(pipe);
    EXPECT_EQ(sequencer->Reason().why, Why::NotReadable);
}
#endif

TEST_F(MachineSequencerFilesTest, AFileAboveTheLimitIsNotEvenRead)
{
    const std::string path = Place(kShort);
    std::filesystem::resize_file(path, kLargestMidiFile + 1);
    Open(path);
    EXPECT_EQ(sequencer->Error(), SequencerError::kInvalidFile);
    EXPECT_EQ(sequencer->Reason().why, Why::TooLarge);
    EXPECT_EQ(sequencer->Reason().n, 16U);
}

TEST_F(MachineSequencerFilesTest, AFileThatFailsToBeReadIsRefused)
{
    const std::string path = Place(kShort);
    for (const FileFault::Operation operation : {FileFault::Operation::Open, FileFault::Operation::Read}) {
        store.faults = {{operation, path, FileError::kDeviceInputOutput, 1}};
        Open(path);
        EXPECT_EQ(sequencer->Error(), SequencerError::kInvalidFile);
        EXPECT_EQ(sequencer->Mode(), SequencerMode::kNotReady);
        Open(path);
        EXPECT_EQ(sequencer->Error(), 0);
    }
}

TEST_F(MachineSequencerFilesTest, AFailedOpenLeavesNothingOpenAndASuccessClearsTheError)
{
    Open(Place(kLong));
    Open(folder.At("nothing.mid"));
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(sequencer->Length(), 0);
    Open(Place(kShort));
    EXPECT_EQ(sequencer->Error(), 0);
    EXPECT_EQ(sequencer->Reason().why, Why::None);
    EXPECT_EQ(sequencer->Length(), 4);
}

} // namespace
} // namespace velluto::test
