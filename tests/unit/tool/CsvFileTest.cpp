// Lists of sounds from CSV.
#include "unit/tool/ListReaders.h"

#include <gtest/gtest.h>

namespace velluto::tool {
namespace {

using Sounds = std::vector<std::string>;

Sounds Read(const std::string &text)
{
    return Told(ReadCsv(text, Speaker{}));
}

std::string Refused(const std::string &text)
{
    return Complaint([&] { return ReadCsv(text, Speaker{}); });
}

TEST(CsvFile, WithoutHeadingsTheColumnsAreInTheirOrder)
{
    EXPECT_EQ(Read("121,0,5,Name\r\n\r\n120 , 1, 6 , Kit \n"), (Sounds{"121/0/5 Name", "120/1/6 Kit"}));
}

TEST(CsvFile, HeadingsSayTheOrder)
{
    EXPECT_EQ(Read("\xEF\xBB\xBFName;x;PROGRAM;msb;Lsb\nA, b;;3;121;2\n"), Sounds{"121/2/3 A, b"});
    EXPECT_EQ(Read("program\tname\tmsb\tlsb\n3\tA;b,c\t121\t2\n"), Sounds{"121/2/3 A;b,c"});
    EXPECT_EQ(Refused("program,name,msb\n3,A,121\n"), "1: the column lsb is missing");
}

TEST(CsvFile, QuotesHoldAnything)
{
    EXPECT_EQ(Read("121,0,5,\"A \"\"b\"\", c\"\n121,0,\"6\",\"two\nlines\"\n"), (Sounds{"121/0/5 A \"b\", c", "121/0/6 two lines"}));
    EXPECT_EQ(Refused("121,0,5,\"A\n121,0,6,B\n"), "1: the quotes do not end");
}

TEST(CsvFile, AddressesOfStylesAreStyles)
{
    EXPECT_EQ(Read("0,15,15,A\n0,16,0,B\n0,0,16,C\n1,0,0,D\n"), (Sounds{"0/15/15 A style", "0/16/0 B", "0/0/16 C", "1/0/0 D"}));
    EXPECT_EQ(Read("msb,lsb,program,name,kind\n0,0,0,A,program\n0,0,1,B,Style\n0,0,2,C,\n0,0,3,D\n"),
              (Sounds{"0/0/0 A", "0/0/1 B style", "0/0/2 C style", "0/0/3 D style"}));
    EXPECT_EQ(Refused("121,0,0,A,style\n"), "1: a Style has msb 0, lsb and program from 0 to 15");
    EXPECT_EQ(Refused("0,0,0,A,drum\n"), "1: kind: \"drum\" is neither program nor style");
}

TEST(CsvFile, MistakesAreToldByTheirLine)
{
    EXPECT_EQ(Refused("121,0,5,A\n121,0,128,B\n"), "2: program: \"128\" is no number from 0 to 127");
    EXPECT_EQ(Refused("121,0,5,\"A\nB\"\n-1,0,0,B\n"), "3: msb: \"-1\" is no number from 0 to 127");
    EXPECT_EQ(Refused("121,0,5\n"), "1: the column name is missing");
    EXPECT_EQ(Refused(""), "0: the file names nothing");
    EXPECT_EQ(Refused("121,0,5,\n"), "0: the file names nothing");
}

} // namespace
} // namespace velluto::tool
