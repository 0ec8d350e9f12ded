// From kind, slot and row to bank select and program change.
#include "RecallLink.h"
#include "midi/MidiOut.h"

#include "midi/frmMsgEx.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// The role of every window lies on channel 1.
struct AllLink : RecallLink {
    AllLink()
    {
        settings.ChannelRole = {14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        for (WindowPlacement &entry : settings.PlacementTable) {
            entry.Role = 14;
        }
        for (DocRecord &record : settings.PcgDocTable) {
            record.Role = 14;
        }
        for (DocRecord &record : settings.StyDocTable) {
            record.Role = 14;
        }
        for (DocRecord &record : settings.PrfDocTable) {
            record.Role = 14;
        }
    }
    void SetFactoryRecord(int number, const std::string &numbers)
    {
        recall.tables.PcgTable.at(static_cast<std::size_t>(number)) = "Name of 17 bytes " + numbers;
    }
};

Sent On0(std::uint32_t msb, std::uint32_t lsb, std::uint32_t program)
{
    return RecallLink::Messages(0, msb, lsb, program);
}

TEST(Recall, Row5OfUser1IsThreeMessagesAndEightBytes)
{
    RecallLink link;
    EXPECT_EQ(link.Select(14, 9, 4), (Sent{0x7900B0, 0x4020B0, 0x04C0}));
}

TEST(Recall, ProgramUser1And2)
{
    AllLink link;
    EXPECT_EQ(link.Select(14, 9, 0), On0(121, 64, 0));
    EXPECT_EQ(link.Select(14, 9, 127), On0(121, 64, 127));
    EXPECT_EQ(link.Select(14, 10, 0), On0(121, 65, 0));
    EXPECT_EQ(link.Select(14, 10, 127), On0(121, 65, 127));
}

TEST(Recall, AProgramWindowThatIsNoBankHasLsb0)
{
    AllLink link;
    link.settings.LastChannel = 0;
    ListWindow window(14, 3);
    RecallItem(link.recall, window.Tag, 12);
    EXPECT_EQ(link.devices.sent, On0(121, 0, 12));
}

TEST(Recall, FactoryProgramsTakeTheirRecordByTheBanksOffset)
{
    const struct {
        int kind;
        int offset;
    } banks[] = {{2, 0}, {3, 118}, {4, 253}, {5, 405}, {6, 514}, {7, 641}};
    for (const auto &bank : banks) {
        AllLink link;
        link.SetFactoryRecord(bank.offset + 1, "121   3  48 ");
        link.SetFactoryRecord(bank.offset + 11, "  0 127 127 ");
        EXPECT_EQ(link.Select(bank.kind, 0, 0), On0(121, 3, 48)) << bank.kind;
        EXPECT_EQ(link.Select(bank.kind, 0, 10), On0(0, 127, 127)) << bank.kind;
    }
}

TEST(Recall, BankCRow0ReadsRecord254)
{
    AllLink link;
    link.SetFactoryRecord(253, "  1   1   1 ");
    link.SetFactoryRecord(254, "121   9  40 ");
    link.SetFactoryRecord(255, "  2   2   2 ");
    EXPECT_EQ(link.Select(4, 0, 0), On0(121, 9, 40));
}

TEST(Recall, TextThatHoldsNoNumberGives0)
{
    AllLink link;
    link.SetFactoryRecord(1, "abc      7x ");
    EXPECT_EQ(link.Select(2, 0, 0), On0(0, 0, 7));
    link.SetFactoryRecord(1, "            ");
    EXPECT_EQ(link.Select(2, 0, 0), On0(0, 0, 0));
    link.recall.tables.PcgTable[1] = "short";
    EXPECT_EQ(link.Select(2, 0, 0), On0(0, 0, 0));
}

TEST(Recall, ADamagedTablePutsNoStatusByteOnTheLine)
{
    AllLink link;
    link.SetFactoryRecord(1, "200 999 255 ");
    const Sent sent = link.Select(2, 0, 0);
    ASSERT_EQ(sent.size(), 3U);
    for (const std::uint32_t message : sent) {
        EXPECT_EQ(message & 0xFF808000U, 0U);
    }
}

TEST(Recall, ARowBeyondTheFactoryTableSendsNothing)
{
    AllLink link;
    EXPECT_EQ(link.Select(7, 0, 745 - 641), Sent{});
    EXPECT_EQ(link.Select(2, 0, -2), Sent{});
}

TEST(Recall, FactoryStylesByPageAndRow)
{
    const struct {
        int first;
        int last;
        std::uint32_t page;
    } pages[] = {{2, 17, 0}, {21, 36, 1}, {39, 54, 2}, {58, 73, 3}, {76, 91, 4}, {95, 110, 5}, {113, 128, 6}, {132, 147, 7}};
    for (const auto &page : pages) {
        AllLink link;
        EXPECT_EQ(link.Select(15, 1, page.first), On0(0, page.page, 0)) << page.first;
        EXPECT_EQ(link.Select(15, 1, page.last), On0(0, page.page, 15)) << page.last;
        EXPECT_EQ(link.Select(16, 2, page.first), On0(0, page.page + 8, 0)) << page.first;
        EXPECT_EQ(link.Select(16, 2, page.last), On0(0, page.page + 8, 15)) << page.last;
        // A row beside the page leaves the list's first bank and program 0.
        EXPECT_EQ(link.Select(15, 1, page.first - 1), On0(0, 0, 0)) << page.first;
        EXPECT_EQ(link.Select(16, 2, page.last + 1), On0(0, 8, 0)) << page.last;
    }
}

TEST(Recall, StyleList2Row21)
{
    AllLink link;
    EXPECT_EQ(link.Select(16, 2, 21), On0(0, 9, 0));
}

TEST(Recall, StyleBanksAreLsb17To28)
{
    AllLink link;
    for (int slot = 9; slot <= 20; ++slot) {
        EXPECT_EQ(link.Select(20, slot, 15), On0(0, static_cast<std::uint32_t>(slot + 8), 15));
    }
    EXPECT_EQ(link.Select(20, 10, 3), On0(0, 18, 3));
    EXPECT_EQ(link.Select(20, 20, 3), On0(0, 28, 3));
}

TEST(Recall, AStyleWindowThatIsNoBankSendsZeros)
{
    AllLink link;
    link.settings.LastChannel = 0;
    ListWindow window(20, 3);
    RecallItem(link.recall, window.Tag, 12);
    EXPECT_EQ(link.devices.sent, On0(0, 0, 0));
}

TEST(Recall, PerformanceBanksAreMsb1AndLsb0To19)
{
    AllLink link;
    for (int slot = 9; slot <= 28; ++slot) {
        EXPECT_EQ(link.Select(22, slot, 7), On0(1, static_cast<std::uint32_t>(slot - 9), 7));
    }
}

TEST(Recall, APerformanceFileSendsNothing)
{
    AllLink link;
    link.settings.LastChannel = 7;
    for (int slot = 0; slot <= 8; ++slot) {
        EXPECT_EQ(link.Select(22, slot, 3), Sent{}) << slot;
    }
    EXPECT_EQ(link.settings.LastChannel, 7);
    link.settings.LastChannel = 0;
    ListWindow window(22, 8);
    RecallItem(link.recall, window.Tag, 3);
    EXPECT_EQ(link.devices.sent, Sent{});
}

TEST(Recall, ANewPerformanceWindowWithALeftoverRoleSendsZeros)
{
    AllLink link;
    EXPECT_EQ(link.Select(23, 0, 5), Sent{}); // no role has been read yet
    link.Select(14, 9, 4);
    EXPECT_EQ(link.Select(23, 0, 5), On0(0, 0, 0));
}

TEST(Recall, AChannelThatIsNoneSendsNothing)
{
    AllLink link;
    link.settings.LastChannel = 99;
    ListWindow window(14, 9);
    RecallItem(link.recall, window.Tag, 3);
    EXPECT_EQ(link.devices.sent, Sent{});
}

TEST(Recall, Channel16IsInTheStatusBytes)
{
    RecallLink link;
    link.settings.ChannelRole = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2};
    EXPECT_EQ(link.Select(14, 10, 127), (Sent{0x7900BF, 0x4120BF, 0x7FCF}));
    EXPECT_EQ(link.settings.LastChannel, 15);
}

TEST(Recall, TheEightBytesStandInTheMonitorAlone)
{
    RecallLink link;
    mnuMsgEx_Click(link.midi);
    link.midi.MonitorEnabled = false; // the click sets it
    link.Select(14, 9, 4);
    EXPECT_EQ(link.midi.monitor->Text1.text.Get(), "B0 00 79 B0 20 40 C0 04 \r\n\r\n");
    link.Select(14, 10, 5);
    EXPECT_EQ(link.midi.monitor->Text1.text.Get(), "B0 00 79 B0 20 41 C0 05 \r\n\r\n");
    EXPECT_TRUE(link.midi.MonitorEnabled);
}

TEST(Recall, WithoutAnOutputNothingIsSentOrShownAndTheChannelIsTaken)
{
    RecallLink link;
    CloseMidiOut(link.midi);
    link.settings.LastChannel = 7;
    EXPECT_EQ(link.Select(14, 9, 4), Sent{});
    EXPECT_TRUE(link.face.boxes.empty());
    EXPECT_EQ(link.settings.LastChannel, 0);
}

TEST(Recall, ASendThatFailsShowsOneBoxForTheThreeMessages)
{
    RecallLink link;
    link.devices.outs[0].codes.send = 68;
    link.Select(14, 9, 4);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Error accessing MIDI output device (Cod Err: 468)"}));
}

} // namespace
} // namespace velluto::test
