// list, find and check over files and folders of all sorts.
#include "tool/Commands.h"

#include "app/Paths.h"
#include "unit/support/InstrumentImage.h"
#include "unit/support/TestProgram.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>
#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace velluto::tool {
namespace {

using test::Bytes;
using test::InstrumentFile;

class ToolCommandsTest : public testing::Test {
protected:
    void Put(const std::string &name, const Bytes &bytes)
    {
        std::filesystem::create_directories(std::filesystem::path(folder.At(name)).parent_path());
        test::WriteBytes(folder.At(name), bytes);
    }
    // The exit code; what was said is in out and errors, with "F" for the test's folder and the separators of POSIX.
    int Run(std::vector<std::string> line, int linguaBase = kEnglishBase)
    {
        for (std::string &word : line) {
            word = word.starts_with("F") ? folder.Path() + word.substr(1) : word;
        }
        std::string complaint;
        const auto arguments = ParseArguments(line, linguaBase, complaint);
        EXPECT_TRUE(arguments) << complaint;
        std::ostringstream outStream;
        std::ostringstream errorStream;
        const Desk desk{files, outStream, errorStream, Speaker{linguaBase}};
        const int code = arguments->command == Command::List   ? ListFiles(desk, *arguments)
                         : arguments->command == Command::Find ? FindItems(desk, *arguments)
                                                               : CheckFiles(desk, *arguments);
        out = Shortened(outStream.str());
        errors = Shortened(errorStream.str());
        return code;
    }
    std::string Shortened(std::string text) const
    {
        for (std::size_t at = 0; (at = text.find(folder.Path(), at)) != std::string::npos;) {
            text.replace(at, folder.Path().size(), "F");
        }
        std::ranges::replace(text, kPathSeparator, '/');
        return text;
    }

    test::TempFolder folder;
    MachineFiles files;
    std::string out;
    std::string errors;
    const Bytes programs = InstrumentFile({{"Grand Piano", 0, {}}, {"Caff\xC8 Organ", 63, {}}});
};

TEST_F(ToolCommandsTest, ListShowsTheRowsThatHoldSomething)
{
    Put("a.pcg", programs);
    EXPECT_EQ(Run({"list", "F/a.pcg"}), ExitCode::Fine);
    EXPECT_EQ(out, "F/a.pcg: Program, 64 places, items: 2\n 001 Grand Piano\n 064 Caff\xC3\x88 Organ\n");
    EXPECT_EQ(Run({"list", "--all", "F/a.pcg"}), ExitCode::Fine);
    EXPECT_EQ(std::ranges::count(out, '\n'), 65);
    EXPECT_EQ(Run({"list", "--csv", "F/a.pcg"}), ExitCode::Fine);
    EXPECT_EQ(out, "file,kind,place,name,row\nF/a.pcg,Program,1,Grand Piano,\" 001 Grand Piano\"\n"
                   "F/a.pcg,Program,64,Caff\xC3\x88 Organ,\" 064 Caff\xC3\x88 Organ\"\n");
}

TEST_F(ToolCommandsTest, AFoldersFilesComeInTheOrderOfAListAndItsFoldersAfterThem)
{
    Put("b.PCG", programs);
    Put("A.prf", InstrumentFile({{"One", 0, {}}}));
    Put("c/in/d.sty", InstrumentFile({{"Xylo", 0, {1}}, {"Yarn", 1, {2}}}));
    Put(".hidden.pcg", programs);
    Put("notes.txt", {});
    EXPECT_EQ(Run({"list", "--csv", "F"}), ExitCode::Fine);
    EXPECT_EQ(out.substr(out.find('\n') + 1), "F/A.prf,Performance,1,One,\" 1 One\"\n"
                                              "F/b.PCG,Program,1,Grand Piano,\" 001 Grand Piano\"\n"
                                              "F/b.PCG,Program,64,Caff\xC3\x88 Organ,\" 064 Caff\xC3\x88 Organ\"\n"
                                              "F/c/in/d.sty,Style,1,Xylo,\" 01 Xylo                 1\"\n"
                                              "F/c/in/d.sty,Style,2,Yarn,\" 02 Yarn                 1\"\n");
    EXPECT_EQ(errors, "");
}

TEST_F(ToolCommandsTest, StsFollowTheirStyles)
{
    Put("a.sty", InstrumentFile({{"Xylo", 0, {1}}, {"Xylo sts", 0, {2, 3}}}));
    EXPECT_EQ(Run({"list", "F/a.sty"}), ExitCode::Fine);
    EXPECT_EQ(out, "F/a.sty: Style, 16 places, items: 2\n 01 Xylo                 1\nSTS:\n 01 Xylo sts             2\n");
}

TEST_F(ToolCommandsTest, FindTakesAllWordsInAnyCase)
{
    Put("a.pcg", programs);
    Put("b/c.prf", InstrumentFile({{"My piano", 3, {}}}));
    EXPECT_EQ(Run({"find", "PIANO", "F"}), ExitCode::Fine);
    EXPECT_EQ(out, "F/a.pcg: Program 001 Grand Piano\nF/b/c.prf: Performance 4 My piano\n");
    EXPECT_EQ(Run({"find", "piano  gr", "F"}), ExitCode::Fine);
    EXPECT_EQ(out, "F/a.pcg: Program 001 Grand Piano\n");
    EXPECT_EQ(Run({"find", "caff\xC3\xA8", "F", "--json"}), ExitCode::Fine);
    EXPECT_EQ(nlohmann::json::parse(out).at(0).at("place"), 64);
    EXPECT_EQ(Run({"find", "piano organ", "F"}), ExitCode::Found);
    EXPECT_EQ(Run({"find", "001", "F"}), ExitCode::Found) << "numbers are no part of the name";
    EXPECT_EQ(out, "");
}

TEST_F(ToolCommandsTest, CheckTellsWhatIsWrongAndWhere)
{
    Put("good.pcg", programs);
    EXPECT_EQ(Run({"check", "F"}), ExitCode::Fine);
    EXPECT_EQ(out, "files checked: 1; nothing wrong\n");
    Bytes bad = programs;
    bad[3] = 0;
    Put("bad.pcg", bad);
    EXPECT_EQ(Run({"check", "F"}), ExitCode::Found);
    EXPECT_EQ(out,
              "F/bad.pcg: offset 3: the head of the file has the byte 0 where 20 belongs\nfiles checked: 2; with something wrong: 1\n");
    EXPECT_EQ(Run({"check", "--csv", "F/bad.pcg"}, kItalianBase), ExitCode::Found);
    EXPECT_EQ(out, "file,offset,fault\nF/bad.pcg,3,l'inizio del file ha il byte 0 dove va 20\n");
    EXPECT_EQ(Run({"check", "--json", "F/good.pcg"}), ExitCode::Fine);
    EXPECT_EQ(out, "[]\n");
}

TEST_F(ToolCommandsTest, WhatIsNoFileOfTheInstrumentIsTold)
{
    Bytes later = programs;
    later[29] = 1;
    Bytes damaged = programs;
    damaged.back() = 9;
    Put("damaged.pcg", damaged);
    Put("empty.prf", {});
    Put("later.pcg", later);
    Put("x.doc", programs);
    EXPECT_EQ(Run({"list", "F", "F/x.doc"}), ExitCode::Found);
    EXPECT_EQ(errors, "velluto-tool: F/damaged.pcg: is damaged; check tells where\n"
                      "velluto-tool: F/empty.prf: not a file of the instrument: \"KORF\" is missing\n"
                      "velluto-tool: F/later.pcg: written by a later instrument of the family: Velluto does not read it\n"
                      "velluto-tool: F/x.doc: does not end in .pcg, .sty or .prf\n");
    EXPECT_TRUE(std::filesystem::exists(folder.At("empty.prf"))) << "nothing is deleted";
    EXPECT_EQ(Run({"check", "F/later.pcg"}), ExitCode::Found);
    EXPECT_EQ(out.substr(0, out.find('\n')),
              "F/later.pcg: offset 29: written by a later instrument of the family: Velluto does not read it");
}

#ifndef _WIN32 // whose folders hold no pipes
TEST_F(ToolCommandsTest, WhatCannotBeReadIsToldAndTheRestIsRead)
{
    Put("a.pcg", programs);
    ASSERT_EQ(::mkfifo(folder.At("pipe.pcg").c_str(), 0600), 0);
    std::filesystem::create_symlink("loop.pcg", folder.At("loop.pcg"));
    std::filesystem::create_directory_symlink(".", folder.At("again"));
    const std::string name(300, 'x');
    EXPECT_EQ(Run({"check", "F", "F/none.sty", "F/" + name, "/dev/null"}), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/loop.pcg: its links lead in a circle\n"
                      "velluto-tool: F/pipe.pcg: is no ordinary file\n"
                      "velluto-tool: F/none.sty: does not exist\n"
                      "velluto-tool: F/" +
                          name +
                          ": the name is too long\n"
                          "velluto-tool: /dev/null: is no ordinary file\n");
    EXPECT_EQ(out, "files checked: 1; nothing wrong\n");
}
#endif

TEST_F(ToolCommandsTest, AFileLongerThanAnyIsNotReadWhole)
{
    Put("long.pcg", programs);
    std::filesystem::resize_file(folder.At("long.pcg"), 4ULL << 30);
    EXPECT_EQ(Run({"check", "F"}), ExitCode::Found);
    EXPECT_EQ(out.substr(0, out.find('\n')), "F/long.pcg: offset 0: the file has 4294967296 bytes: no file of the instrument is that long");
    EXPECT_EQ(Run({"list", "F"}), ExitCode::Found);
    EXPECT_EQ(out, "");
}

#ifndef _WIN32 // whose names are of letters, and of one line
TEST_F(ToolCommandsTest, NamesOfAnyBytesGiveValidTables)
{
    Put("caff\xE8\n\"1\".pcg", programs);
    EXPECT_EQ(Run({"list", "--json", "F"}), ExitCode::Fine);
    EXPECT_EQ(nlohmann::json::parse(out).at(0).at("file"), "F/caff\xEF\xBF\xBD\n\"1\".pcg");
    EXPECT_EQ(Run({"list", "F"}), ExitCode::Fine);
    EXPECT_EQ(out.substr(0, out.find(':')), "F/caff\xE8?\"1\".pcg");
}
#endif

TEST_F(ToolCommandsTest, AnAnswerThatCannotBeWrittenEndsTheWork)
{
    for (int i = 0; i < 20; ++i) {
        Put(std::to_string(i) + ".pcg", {});
    }
    std::ostringstream gone;
    std::ostringstream errorStream;
    gone.setstate(std::ios::badbit);
    const Desk desk{files, gone, errorStream, Speaker{}};
    Arguments arguments;
    arguments.paths = {folder.Path()};
    (void)ListFiles(desk, arguments);
    EXPECT_EQ(std::ranges::count(errorStream.str(), '\n'), 1);
}

} // namespace
} // namespace velluto::tool
