// The built program itself, on the files that ship: exit codes, streams and languages.
#include "unit/support/TestProgram.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace velluto::tool {
namespace {

struct Result {
    int code = -1;
    std::string said;
};

// What the shell makes of the words behind the program's name. The environment tells no language.
Result Shell(const std::string &words, const std::string &before = "env -u LC_ALL -u LC_MESSAGES -u LANG ")
{
    std::FILE *const pipe = ::popen((before + "'" VELLUTO_TOOL "' " + words).c_str(), "r"); // NOLINT(cert-env33-c): the test's own words
    Result result;
    std::array<char, 4096> buffer{};
    for (std::size_t got = 1; pipe != nullptr && got > 0;) {
        got = std::fread(buffer.data(), 1, buffer.size(), pipe);
        result.said.append(buffer.data(), got);
    }
    const int status = pipe != nullptr ? ::pclose(pipe) : -1;
    result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}

const std::string kSamples = "'" VELLUTO_SAMPLES "'";

TEST(ToolProgram, TheShippedFilesAreListedFoundAndWhole)
{
    const Result check = Shell("check " + kSamples);
    EXPECT_EQ(check.code, 0);
    EXPECT_NE(check.said.find("; nothing wrong\n"), std::string::npos) << check.said;
    const Result list = Shell("list " + kSamples);
    EXPECT_EQ(list.code, 0);
    EXPECT_NE(list.said.find(" 01 Harbour Shuffle  10713\n"), std::string::npos);
    const Result find = Shell("find 'HARBOUR shuffle' " + kSamples + " --csv");
    EXPECT_EQ(find.code, 0);
    EXPECT_NE(find.said.find("/Sparse-5.sty,Style,1,Harbour Shuffle,"), std::string::npos) << find.said;
    EXPECT_EQ(Shell("find 'no such name' " + kSamples).code, 1);
}

TEST(ToolProgram, ItEndsWithTwoWhereTheCommandIsWrongAndWithThreeWhereAFileIs)
{
    EXPECT_EQ(Shell("2>&1").code, 2);
    EXPECT_EQ(Shell("2>&1").said, "velluto-tool: a command is missing\nvelluto-tool --help tells what can be written.\n");
    EXPECT_EQ(Shell("list --nonsense x 2>/dev/null").code, 2);
    EXPECT_EQ(Shell("check /no/such/file.pcg 2>&1").said.substr(0, 52), "velluto-tool: /no/such/file.pcg: does not exist\nfile");
    EXPECT_EQ(Shell("check /no/such/file.pcg 2>/dev/null").code, 3);
}

TEST(ToolProgram, ADiskThatIsFullLeavesTheTable)
{
    const test::TempFolder folder;
    for (const char *name : {"Velluto-pcg.txt", "Velluto-sty.txt"}) {
        test::WriteBytes(folder.At(name), test::ReadBytes(std::string(VELLUTO_DATA "/") + name));
    }
    const std::string list = "121,0,0,Mine\n";
    test::WriteBytes(folder.At("a.csv"), test::Bytes(list.begin(), list.end()));
    const std::string import = "tables import '" + folder.At("a.csv") + "' --folder '" + folder.Path() + "' 2>/dev/null";
    EXPECT_EQ(Shell(import, "ulimit -f 8; env ").code, 3); // 8 blocks are less than the table
    EXPECT_EQ(test::ReadBytes(folder.At("Velluto-pcg.txt")), test::ReadBytes(VELLUTO_DATA "/Velluto-pcg.txt"));
    const auto files = std::distance(std::filesystem::directory_iterator(folder.Path()), std::filesystem::directory_iterator());
    EXPECT_EQ(files, 3) << "nothing is left beside";
    EXPECT_EQ(Shell(import).code, 0);
    EXPECT_NE(test::ReadBytes(folder.At("Velluto-pcg.txt")), test::ReadBytes(VELLUTO_DATA "/Velluto-pcg.txt"));
}

TEST(ToolProgram, AnAnswerThatCannotBeWrittenIsAFailure)
{
    EXPECT_EQ(Shell("list " + kSamples + " 2>&1 >/dev/full").code, 3);
    EXPECT_EQ(Shell("--help 2>&1 >&-").said, "velluto-tool: the answer cannot be written\n");
    EXPECT_EQ(Shell("--help >&- 2>&-").code, 3);
}

TEST(ToolProgram, ItSpeaksTheLanguageOfTheLocale)
{
    const std::string none = "env -u LC_ALL -u LC_MESSAGES LANG=it_IT.UTF-8 ";
    EXPECT_EQ(Shell("--help", none).said.substr(0, 4), "Uso:");
    EXPECT_EQ(Shell("--help", "env LC_ALL= LC_MESSAGES=it LANG=en ").said.substr(0, 4), "Uso:");
    EXPECT_EQ(Shell("--help", "env LC_ALL=C LC_MESSAGES=it LANG=it ").said.substr(0, 6), "Usage:");
    EXPECT_EQ(Shell("--language=en --help", none).said.substr(0, 6), "Usage:");
    EXPECT_EQ(Shell("--version").said, "velluto-tool " VELLUTO_VERSION "\n");
}

} // namespace
} // namespace velluto::tool
