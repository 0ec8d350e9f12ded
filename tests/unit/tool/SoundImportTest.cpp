// Which record of the tables a sound of a list goes to.
#include "tool/SoundImport.h"

#include "unit/support/TestProgram.h"
#include "unit/tool/ListReaders.h"

#include <gtest/gtest.h>

namespace velluto::tool {
namespace {

ListedSound Sound(int msb, int lsb, int program, const std::string &name)
{
    return {{msb, lsb, program}, name};
}

class SoundImportTest : public testing::Test {
protected:
    [[nodiscard]] std::string Name(int record) const { return std::string(NameIn(programs.Record(record), PcgField::Name)); }
    [[nodiscard]] std::string StyleName(int record) const { return std::string(NameIn(styles.Record(record), StyField::Name)); }
    [[nodiscard]] static std::vector<std::string> Homeless(const ImportResult &result)
    {
        std::vector<std::string> names;
        for (const ListedSound &sound : result.homeless) {
            names.push_back(sound.name);
        }
        return names;
    }
    ImportResult Import(const std::vector<ListedSound> &sounds) { return ImportSounds(sounds, programs, styles); }

    // What ships: Piano is records 3 to 34 with 13 sounds; Digital Drawbars 169 alone; Drum/Perc 644 to 692; Style 1-01 is record 3.
    RecordTable programs = ProgramTable(File(VELLUTO_DATA "/Velluto-pcg.txt"));
    RecordTable styles = StyleTable(File(VELLUTO_DATA "/Velluto-sty.txt"));
};

TEST_F(SoundImportTest, AnAddressOfTheTableGetsItsName)
{
    const ImportResult result = Import({Sound(121, 0, 0, "The Grand"), Sound(121, 1, 0, "A name that is far too long")});
    EXPECT_EQ(result.named, 2);
    EXPECT_EQ(result.shortened, 1);
    EXPECT_EQ(result.placed, 0);
    EXPECT_EQ(Name(3), "The Grand");
    EXPECT_EQ(Name(4), "A name that i");
    EXPECT_EQ(programs.Record(4), "  4 A name that i121   1   0\r\n");
    EXPECT_EQ(Name(5), "Dark Grand");
}

TEST_F(SoundImportTest, OthersGoToFreePlacesOfTheirGroupInOrderOfProgramAndBank)
{
    const ImportResult result =
        Import({Sound(3, 0, 1, "Third"), Sound(2, 5, 0, "Second"), Sound(2, 4, 0, "First"), Sound(0, 0, 9, "Bells")});
    EXPECT_EQ(result.placed, 4);
    EXPECT_EQ(programs.Record(16), " 16 First          2   4   0\r\n");
    EXPECT_EQ(programs.Record(17), " 17 Second         2   5   0\r\n");
    EXPECT_EQ(programs.Record(18), " 18 Third          3   0   1\r\n");
    EXPECT_EQ(programs.Record(19), " 19              121   0   0\r\n");
    EXPECT_EQ(Name(82), "Bells");
    const std::string once = programs.Bytes();
    EXPECT_EQ(Import({Sound(2, 5, 0, "Second")}).named, 1);
    EXPECT_EQ(programs.Bytes(), once) << "a second time it has its place";
}

TEST_F(SoundImportTest, WhatFindsNoPlaceIsListedInOrder)
{
    std::vector<ListedSound> sounds;
    for (int lsb = 29; lsb >= 0; --lsb) {
        sounds.push_back(Sound(5, lsb, 21, "Accordion " + std::to_string(lsb)));
    }
    const ImportResult result = Import(sounds); // 16 places, four of them taken
    EXPECT_EQ(result.placed, 12);
    EXPECT_EQ(Homeless(result).size(), 18U);
    EXPECT_EQ(Homeless(result).front(), "Accordion 12");
    EXPECT_EQ(Homeless(result).back(), "Accordion 29");
    EXPECT_EQ(Name(117), "Accordion 11");
}

TEST_F(SoundImportTest, AFirstSoundThatIsNewGivesTheFreePlacesItsNumbers)
{
    for (int record = 3; record <= 34; ++record) {
        programs.Put(record, PcgField::Name, "");
        PutAddress(programs, record, {0, 0, 0});
    }
    EXPECT_EQ(Import({Sound(121, 3, 2, "New")}).placed, 1);
    EXPECT_EQ(programs.Record(3), "  3 New          121   3   2\r\n");
    EXPECT_EQ(programs.Record(34), " 34              121   3   2\r\n");
}

TEST_F(SoundImportTest, APlaceThatHasNumbersOfItsOwnWaitsForItsName)
{
    PutAddress(programs, 20, {9, 9, 9});
    EXPECT_EQ(Import({Sound(9, 9, 9, "Mine")}).named, 1);
    EXPECT_EQ(Name(20), "Mine");
}

TEST_F(SoundImportTest, KitsGoToTheDrums)
{
    ListedSound marked = Sound(5, 0, 3, "Marked kit");
    marked.isKit = true;
    EXPECT_EQ(Import({marked, Sound(120, 0, 99, "Kit 99")}).placed, 2);
    const SoundGroup &drums = SoundGroups()[15];
    int found = 0;
    for (int record = drums.sounds.first; record <= drums.sounds.last; ++record) {
        found += Name(record) == "Marked kit" || Name(record) == "Kit 99" ? 1 : 0;
    }
    EXPECT_EQ(found, 2);
}

TEST_F(SoundImportTest, ANameForAnyBankIsThatOfTheBasicSound)
{
    ListedSound any = Sound(0, 0, 1, "Any");
    any.anyBank = true;
    EXPECT_EQ(Import({any}).named, 1);
    EXPECT_EQ(Name(6), "Any");         // 121, 0, 1
    EXPECT_EQ(Name(7), "Wide Bright"); // 121, 1, 1
    any.name = "Other";
    EXPECT_EQ(Import({any, Sound(121, 0, 0, "Told")}).named, 1) << "the list tells of this bank itself";
    EXPECT_EQ(Name(6), "Any");
}

TEST_F(SoundImportTest, TheFirstOfTwoWithOneAddressCounts)
{
    EXPECT_EQ(Import({Sound(121, 0, 0, "One"), Sound(121, 0, 0, "Two")}).named, 1);
    EXPECT_EQ(Name(3), "One");
}

TEST_F(SoundImportTest, StylesAreNamedByBankAndNumber)
{
    ListedSound first = Sound(0, 0, 0, "Bossa");
    ListedSound last = Sound(0, 15, 15, "A waltz that is too long");
    ListedSound shared7 = Sound(0, 7, 2, "Shared");
    ListedSound shared8 = Sound(0, 8, 2, "Another");
    ListedSound same = Sound(0, 8, 3, "Same");
    ListedSound again = Sound(0, 7, 3, "Same");
    for (ListedSound *style : {&first, &last, &shared7, &shared8, &same, &again}) {
        style->isStyle = true;
    }
    const ImportResult result = Import({first, last, shared7, shared8, same, again});
    EXPECT_EQ(StyleName(3), "Bossa");
    EXPECT_EQ(StyleName(256), "A waltz that is");
    EXPECT_EQ(StyleName(124), "Shared") << "one record for banks 8 and 9";
    EXPECT_EQ(Homeless(result), std::vector<std::string>{"Another"});
    EXPECT_EQ(result.named, 4);
}

TEST_F(SoundImportTest, EverySoundThatShipsIsInTheGroupOfItsFamily)
{
    int sounds = 0;
    for (std::size_t group = 0; group < SoundGroups().size(); ++group) {
        for (int record = SoundGroups()[group].sounds.first; record <= SoundGroups()[group].sounds.last; ++record) {
            if (!Name(record).empty()) {
                EXPECT_EQ(GroupOf(AddressOf(programs.Record(record)), false), group) << Name(record);
                ++sounds;
            }
        }
    }
    EXPECT_GT(sounds, 256);
    EXPECT_EQ(SoundGroups().size(), 17U);
}

TEST_F(SoundImportTest, AShortTableIsFilledWithBlanksAndALongOneKeepsItsEnd)
{
    EXPECT_EQ(ProgramTable("ab").Bytes().size(), 745U * 30);
    EXPECT_EQ(ProgramTable("ab").Record(1), "ab" + std::string(28, ' '));
    EXPECT_EQ(StyleTable(std::string(7000, 'x')).Bytes().size(), 7000U);
}

} // namespace
} // namespace velluto::tool
