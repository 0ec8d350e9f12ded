#include "app/SettingsRecord.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>
#include <vector>

using namespace velluto;

namespace {

// Position of byte `offset` of placement entry k.
std::size_t PlacementPosition(std::size_t k, std::size_t offset)
{
    return 51 + 14 * k + offset;
}

SettingsRecord Zeros()
{
    return SettingsRecord('\0');
}

} // namespace

TEST(SettingsRecord, NumbersOfTwoBytesHaveTheHighByteFirst)
{
    SettingsRecord record;
    record.PutWord(10, 0x1234);
    EXPECT_EQ(record.Byte(10), 0x12);
    EXPECT_EQ(record.Byte(11), 0x34);
    EXPECT_EQ(record.Word(10), 0x1234);
}

TEST(SettingsRecord, TheMagicIsTheProgramsNameInTheFirstSevenBytes)
{
    SettingsRecord record('\0');
    EXPECT_FALSE(HasMagic(record));
    PutMagic(record);
    EXPECT_EQ(record.Text(1, 8), std::string("Velluto\0", 8));
    EXPECT_TRUE(HasMagic(record));
    record.PutByte(7, 'O');
    EXPECT_FALSE(HasMagic(record));
}

TEST(GeneralRecord, EachFieldStandsAtItsPosition)
{
    Settings settings;
    settings.ReservedFlag17 = true;
    settings.PlayerPanelOpen = true;
    settings.MidiInDev = 3;
    settings.MidiOutDev = 5;
    settings.ThruOn = true;
    settings.PcgUserAssigned = true;
    settings.LastChannel = 11;
    settings.Lingua = 2;
    for (std::size_t i = 0; i < 16; ++i) {
        settings.KeyboardRecord[i] = static_cast<std::uint8_t>(100 + i);
        settings.ChannelRole[i] = static_cast<std::uint8_t>(i);
    }
    SettingsRecord record('\xEE');
    PutGeneral(record, settings, true);
    const std::vector<std::pair<std::size_t, int>> written{{17, 1}, {18, 1},  {19, 3}, {20, 5}, {21, 1},
                                                           {22, 1}, {23, 11}, {25, 2}, {27, 1}};
    for (const auto &[position, value] : written) {
        EXPECT_EQ(record.Byte(position), value) << position;
    }
    for (std::size_t i = 0; i < 15; ++i) {
        EXPECT_EQ(record.Byte(30 + i), 100 + i);
    }
    for (std::size_t i = 0; i < 16; ++i) {
        EXPECT_EQ(record.Byte(485 + i), i);
    }
}

TEST(GeneralRecord, BytesThatTheProgramDoesNotOwnStay)
{
    SettingsRecord record('\xEE');
    PutGeneral(record, Settings(), true);
    const std::vector<std::pair<std::size_t, std::size_t>> reserved{{1, 16}, {24, 24}, {26, 26}, {28, 29}, {45, 50}, {457, 484}};
    for (const auto &[first, last] : reserved) {
        for (std::size_t position = first; position <= last; ++position) {
            EXPECT_EQ(record.Byte(position), 0xEE) << position;
        }
    }
}

TEST(GeneralRecord, FalseIsZeroAndTheStatusBarFollowsItsMenuEntry)
{
    Settings settings;
    settings.StatusBarOn = true;
    SettingsRecord record('\xEE');
    PutGeneral(record, settings, false);
    for (const std::size_t position : {17U, 18U, 21U, 22U, 27U}) {
        EXPECT_EQ(record.Byte(position), 0) << position;
    }
    settings.StatusBarOn = false;
    PutGeneral(record, settings, true);
    EXPECT_EQ(record.Byte(27), 1);
}

TEST(GeneralRecord, EveryByteButZeroIsTrueExceptAtPosition17)
{
    SettingsRecord record = Zeros();
    for (const std::size_t position : {17U, 18U, 21U, 22U, 27U}) {
        record.PutByte(position, 200);
    }
    Settings settings;
    TakeGeneral(record, settings);
    EXPECT_FALSE(settings.ReservedFlag17);
    EXPECT_TRUE(settings.PlayerPanelOpen);
    EXPECT_TRUE(settings.ThruOn);
    EXPECT_TRUE(settings.PcgUserAssigned);
    EXPECT_TRUE(settings.StatusBarOn);
    record.PutByte(17, 1);
    TakeGeneral(record, settings);
    EXPECT_TRUE(settings.ReservedFlag17);
}

TEST(GeneralRecord, TheSixteenthKeyboardByteIsNotRead)
{
    SettingsRecord record('\x07');
    Settings settings;
    TakeGeneral(record, settings);
    EXPECT_EQ(settings.KeyboardRecord[14], 7);
    EXPECT_EQ(settings.KeyboardRecord[15], 0);
}

TEST(GeneralRecord, ALanguageThatIsNoneIsItalian)
{
    for (const auto &[stored, lingua] : std::vector<std::pair<int, int>>{{0, 1}, {1, 1}, {2, 2}, {3, 1}, {32, 1}, {255, 1}}) {
        SettingsRecord record = Zeros();
        record.PutByte(25, static_cast<std::uint8_t>(stored));
        Settings settings;
        TakeGeneral(record, settings);
        EXPECT_EQ(settings.Lingua, lingua) << stored;
    }
}

TEST(GeneralRecord, ADeviceNumberBeyondTheTablesIsNone)
{
    for (const auto &[stored, device] : std::vector<std::pair<int, int>>{{0, 0}, {7, 7}, {8, 99}, {98, 99}, {99, 99}, {255, 99}}) {
        SettingsRecord record = Zeros();
        record.PutByte(19, static_cast<std::uint8_t>(stored));
        record.PutByte(20, static_cast<std::uint8_t>(stored));
        Settings settings;
        TakeGeneral(record, settings);
        EXPECT_EQ(settings.MidiInDev, device) << stored;
        EXPECT_EQ(settings.MidiOutDev, device) << stored;
    }
}

TEST(GeneralRecord, APlacementIsFourteenBytes)
{
    Settings settings;
    WindowPlacement &placement = settings.PlacementTable[28];
    placement.Top = 100;
    placement.Left = -200;
    placement.Width = 6000;
    placement.Height = 5000;
    placement.State = 1;
    placement.Role = 14;
    placement.MinWidth = 5900;
    placement.MinHeight = 4900;
    SettingsRecord record = Zeros();
    PutGeneral(record, settings, false);
    EXPECT_EQ(record.Word(PlacementPosition(28, 0)), 16100);
    EXPECT_EQ(record.Word(PlacementPosition(28, 2)), 15800);
    EXPECT_EQ(record.Word(PlacementPosition(28, 4)), 6000);
    EXPECT_EQ(record.Word(PlacementPosition(28, 6)), 5000);
    EXPECT_EQ(record.Byte(PlacementPosition(28, 8)), 1);
    EXPECT_EQ(record.Byte(PlacementPosition(28, 9)), 14);
    EXPECT_EQ(record.Word(PlacementPosition(28, 10)), 5900);
    EXPECT_EQ(record.Word(PlacementPosition(28, 12)), 4900);
    EXPECT_EQ(PlacementPosition(28, 13), 456U);
    Settings read;
    TakeGeneral(record, read);
    EXPECT_EQ(read.PlacementTable[28].Left, -200);
    EXPECT_EQ(read.PlacementTable[28].MinHeight, 4900);
}

TEST(GeneralRecord, APlacementsTopAndLeftHaveNoLimit)
{
    Settings settings;
    settings.PlacementTable[8].Top = -20000;
    settings.PlacementTable[8].Left = 30000;
    SettingsRecord record = Zeros();
    PutGeneral(record, settings, false);
    Settings read;
    TakeGeneral(record, read);
    EXPECT_EQ(read.PlacementTable[8].Top, -20000);
    EXPECT_EQ(read.PlacementTable[8].Left, 30000);
}

TEST(GeneralRecord, WhatIsReadIsWrittenBackByteByByte)
{
    std::mt19937 random(20050514);
    for (int round = 0; round < 200; ++round) {
        SettingsRecord record;
        for (std::uint8_t &byte : record.Bytes()) {
            byte = static_cast<std::uint8_t>(random());
        }
        for (const std::size_t position : {17U, 18U, 21U, 22U, 27U}) {
            record.PutByte(position, record.Byte(position) & 1U);
        }
        record.PutByte(19, record.Byte(19) & 7U);
        record.PutByte(20, 99);
        record.PutByte(25, 1 + (record.Byte(25) & 1U));
        Settings settings;
        TakeGeneral(record, settings);
        SettingsRecord written = record;
        PutGeneral(written, settings, settings.StatusBarOn);
        EXPECT_TRUE(std::ranges::equal(written.Bytes(), record.Bytes())) << round;
    }
}

TEST(DocumentRecord, EachFieldStandsAtItsPosition)
{
    DocRecord document;
    document.Path.Set("/music/a.pcg");
    document.Top = 10;
    document.Left = -20;
    document.Width = 3000;
    document.Height = 4000;
    document.State = 2;
    document.Tag6 = 6;
    document.MinWidth = 2900;
    document.MinHeight = 3900;
    SettingsRecord bytes = Zeros();
    bytes.PutText(1, 234, "/music/a.pcg" + std::string(222, ' '));
    for (const auto &[position, word] : std::vector<std::pair<std::size_t, std::uint16_t>>{
             {235, 16010}, {237, 15980}, {239, 3000}, {241, 4000}, {247, 2900}, {249, 3900}}) {
        bytes.PutWord(position, word);
    }
    bytes.PutByte(243, 2);
    bytes.PutByte(245, 6);
    EXPECT_TRUE(std::ranges::equal(DocumentBytes(document).Bytes(), bytes.Bytes()));
    DocRecord read;
    TakeDocument(bytes, read);
    EXPECT_EQ(read.Path.Trimmed(), "/music/a.pcg");
    const auto fields = [](const DocRecord &of) {
        return std::vector<int>{of.Top, of.Left, of.Width, of.Height, of.State, of.Tag6, of.MinWidth, of.MinHeight};
    };
    EXPECT_EQ(fields(read), fields(document));
}

TEST(DocumentRecord, RoleAndTag7AreReadButWrittenAsZero)
{
    SettingsRecord record = Zeros();
    record.PutByte(244, 14);
    record.PutByte(246, 3);
    DocRecord document;
    TakeDocument(record, document);
    EXPECT_EQ(document.Role, 14);
    EXPECT_EQ(document.Tag7, 3);
    const SettingsRecord written = DocumentBytes(document);
    EXPECT_EQ(written.Byte(244), 0);
    EXPECT_EQ(written.Byte(246), 0);
}

TEST(DocumentRecord, ATopOfMinus20000IsWrittenAs0AndReadsBackAsMinus16000)
{
    DocRecord document;
    document.Top = -20000;
    document.Left = 20000;
    const SettingsRecord record = DocumentBytes(document);
    EXPECT_EQ(record.Byte(235), 0);
    EXPECT_EQ(record.Byte(236), 0);
    EXPECT_EQ(record.Word(237), 32000);
    DocRecord read;
    TakeDocument(record, read);
    EXPECT_EQ(read.Top, -16000);
    EXPECT_EQ(read.Left, 16000);
}

TEST(DocumentRecord, ASizeAbove32767TakesTheLargestThatFits)
{
    SettingsRecord record = Zeros();
    record.PutWord(239, 0xFFFF);
    record.PutWord(241, 0x8000);
    record.PutWord(247, 0x7FFF);
    DocRecord document;
    TakeDocument(record, document);
    EXPECT_EQ(document.Width, 32767);
    EXPECT_EQ(document.Height, 32767);
    EXPECT_EQ(document.MinWidth, 32767);
}

TEST(RecentRecordBytes, EachFieldStandsAtItsPositionAndTheRestIsZero)
{
    RecentRecord recent;
    recent.Path.Set("/music/a.sty");
    recent.Top = -16001;
    recent.Left = 2;
    recent.Width = 3;
    recent.Height = 4;
    recent.Flag = 5;
    recent.Kind = 6;
    const SettingsRecord record = RecentBytes(recent);
    EXPECT_EQ(record.Text(1, 12), "/music/a.sty");
    EXPECT_EQ(record.Word(235), 0);
    EXPECT_EQ(record.Word(237), 16002);
    EXPECT_EQ(record.Word(239), 3);
    EXPECT_EQ(record.Word(241), 4);
    EXPECT_EQ(record.Byte(243), 0);
    EXPECT_EQ(record.Byte(244), 0);
    EXPECT_EQ(record.Byte(245), 5);
    EXPECT_EQ(record.Byte(246), 6);
    for (std::size_t position = 247; position <= 500; ++position) {
        EXPECT_EQ(record.Byte(position), 0) << position;
    }
    RecentRecord read;
    TakeRecent(record, read);
    EXPECT_EQ(read.Path.Trimmed(), "/music/a.sty");
    EXPECT_EQ(read.Flag, 5);
    EXPECT_EQ(read.Kind, 6);
    EXPECT_EQ(read.Top, -16000);
}
