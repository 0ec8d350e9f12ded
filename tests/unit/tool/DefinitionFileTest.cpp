// Lists of sounds from instrument definitions.
#include "unit/tool/ListReaders.h"

#include <gtest/gtest.h>

namespace velluto::tool {
namespace {

using Sounds = std::vector<std::string>;

Sounds SoundsIn(const std::string &text, const std::string &instrument = {})
{
    return Told(ReadDefinition(text, instrument, Speaker{}));
}

std::string Refusal(const std::string &text, const std::string &instrument = {})
{
    return Complaint([&] { return ReadDefinition(text, instrument, Speaker{}); });
}

const std::string kLists = "; a comment\r\n.Patch Names\r\n\r\n[Pianos]\r\n0=Grand ; the first\r\n 4 = E. Piano \r\n128=Nothing\r\n"
                           "[Organs]\nBasedOn=Pianos\n4=Organ\n16=Drawbars\n.Note Names\n[Pianos]\n5=C#\n.Instrument Definitions\n";

TEST(DefinitionFile, ABankIsMsbTimes128AndLsb)
{
    EXPECT_EQ(SoundsIn(kLists + "[PA80]\nControl=Standard\nPatch[15489]=Pianos\nPatch[0]=Organs\n"),
              (Sounds{"0/0/0 Grand", "0/0/4 Organ", "0/0/16 Drawbars", "121/1/0 Grand", "121/1/4 E. Piano"}));
}

TEST(DefinitionFile, TheMethodSaysWhatANumberOfABankIs)
{
    EXPECT_EQ(SoundsIn(kLists + "[A]\nBankSelMethod=1\nPatch[121]=Pianos\n"), (Sounds{"121/0/0 Grand", "121/0/4 E. Piano"}));
    EXPECT_EQ(SoundsIn(kLists + "[A]\nPatch[7]=Pianos\nBankSelMethod=2\n"), (Sounds{"0/7/0 Grand", "0/7/4 E. Piano"}));
}

TEST(DefinitionFile, AStarIsAnyBank)
{
    EXPECT_EQ(SoundsIn(kLists + "[A]\nPatch[*]=Pianos\n"), (Sounds{"0/0/0 Grand any", "0/0/4 E. Piano any"}));
}

TEST(DefinitionFile, KitsOfDrumsAreMarked)
{
    EXPECT_EQ(SoundsIn(kLists + "[A]\nPatch[1]=Pianos\nPatch[2]=Pianos\nDrum[1,*]=1\nDrum[2,4]=1\nDrum[2,0]=0\n"),
              (Sounds{"0/1/0 Grand kit", "0/1/4 E. Piano kit", "0/2/0 Grand", "0/2/4 E. Piano kit"}));
}

TEST(DefinitionFile, ListsBasedOnEachOtherEnd)
{
    EXPECT_EQ(SoundsIn(".Patch Names\n[a]\nBasedOn=b\n1=One\n[b]\nBasedOn=a\n2=Two\n.Instrument Definitions\n[i]\nPatch[0]=a\n"),
              (Sounds{"0/0/1 One", "0/0/2 Two"}));
}

TEST(DefinitionFile, OfSeveralInstrumentsOneIsChosen)
{
    const std::string two = kLists + "[No banks]\nControl=x\n[One]\nPatch[1]=Pianos\n[Two]\nPatch[2]=Organs\n";
    EXPECT_EQ(Refusal(two), "0: the file has more than one instrument, --instrument says which: One, Two");
    EXPECT_EQ(SoundsIn(two, "ONE"), (Sounds{"0/1/0 Grand", "0/1/4 E. Piano"}));
    EXPECT_EQ(Refusal(two, "Three"), "0: the file has no instrument \"Three\"; it has: One, Two");
}

TEST(DefinitionFile, WhereThereIsNothingItIsTold)
{
    EXPECT_EQ(Refusal(""), "0: the file has no instrument with its banks");
    EXPECT_EQ(Refusal(kLists), "0: the file has no instrument with its banks");
    EXPECT_EQ(Refusal(kLists + "[A]\nPatch[0]=Unknown\nPatch[16384]=Pianos\nPatch[x]=Pianos\n"), "0: the instrument names nothing");
}

TEST(DefinitionFile, NamesAreReadInEitherEncoding)
{
    const auto one = [](const std::string &name) {
        return SoundsIn(".Patch Names\n[a]\n0=" + name + "\n.Instrument Definitions\n[i]\nPatch[0]=a\n").front();
    };
    EXPECT_EQ(one("Caff\xC3\xA8"), "0/0/0 Caff\xE8");
    EXPECT_EQ(one("Caff\xE8"), "0/0/0 Caff\xE8");
    EXPECT_EQ(one("\xE3\x83\x94 x\x01y"), "0/0/0 ? x y");
    EXPECT_EQ(SoundsIn("\xEF\xBB\xBF.Patch Names\n[a]\n0=A\n.Instrument Definitions\n[i]\nPatch[0]=a\n"), Sounds{"0/0/0 A"});
}

TEST(DefinitionFile, ManyBanksOfALongChainAreReadOnce)
{
    std::string text = ".Patch Names\n";
    for (int list = 0; list < 2000; ++list) {
        text += "[" + std::to_string(list) + "]\nBasedOn=" + std::to_string(list + 1) + "\n" + std::to_string(list % 128) + "=x\n";
    }
    text += ".Instrument Definitions\n[i]\n";
    for (int bank = 0; bank < 16384; ++bank) {
        text += "Patch[" + std::to_string(bank) + "]=0\n";
    }
    EXPECT_EQ(ReadDefinition(text, {}, Speaker{}).size(), 16384U * 64);
}

} // namespace
} // namespace velluto::tool
