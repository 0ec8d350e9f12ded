// tables import, export and make on the disk.
#include "tool/TablesCommands.h"

#include "app/Paths.h"
#include "tool/ReplaceKeeping.h"
#include "unit/support/TestProgram.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace velluto::tool {
namespace {

namespace fs = std::filesystem;

class TablesCommandsTest : public testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directory(folder.At("own"));
        fs::create_directory(folder.At("plain"));
        for (const char *name : {"Velluto-pcg.txt", "Velluto-sty.txt"}) {
            fs::copy_file(std::string(VELLUTO_DATA "/") + name, Own(name));
        }
    }
    [[nodiscard]] std::string Own(const std::string &name) const { return folder.At("own/" + name); }
    void Put(const std::string &name, const std::string &text) const
    {
        test::WriteBytes(folder.At(name), test::Bytes(text.begin(), text.end()));
    }
    [[nodiscard]] std::string Read(const std::string &name) const
    {
        const test::Bytes bytes = test::ReadBytes(folder.At(name));
        return {bytes.begin(), bytes.end()};
    }
    int Run(Command command, const std::string &path, const std::string &where = "own")
    {
        Arguments arguments;
        arguments.command = command;
        arguments.folder = where.empty() ? where : folder.At(where);
        arguments.paths = {folder.At(path)};
        std::ostringstream outStream;
        std::ostringstream errorStream;
        const Desk desk{files, outStream, errorStream, Speaker{}};
        const int code = command == Command::Import   ? ImportTables(desk, arguments)
                         : command == Command::Export ? ExportTables(desk, arguments)
                                                      : MakeTables(desk, arguments);
        out = Shortened(outStream.str());
        errors = Shortened(errorStream.str());
        return code;
    }
    [[nodiscard]] std::string Shortened(std::string text) const
    {
        const std::string path = fs::canonical(folder.Path()).string();
        for (std::size_t at = 0; (at = text.find(path, at)) != std::string::npos;) {
            text.replace(at, path.size(), "F");
        }
        std::ranges::replace(text, kPathSeparator, '/');
        return text;
    }
    [[nodiscard]] std::vector<std::string> InOwn() const
    {
        std::vector<std::string> names;
        for (const auto &entry : fs::directory_iterator(folder.At("own"))) {
            names.push_back(entry.path().filename().string());
        }
        std::ranges::sort(names);
        return names;
    }

    test::TempFolder folder;
    MachineFiles files;
    std::string out;
    std::string errors;
};

TEST_F(TablesCommandsTest, AnImportReplacesTheTableAndKeepsTheOldOnes)
{
    const std::string old = Read("own/Velluto-pcg.txt");
    Put("a.csv", "121,0,0,One\n5,0,21,Fisa\n");
    EXPECT_EQ(Run(Command::Import, "a.csv"), ExitCode::Fine) << errors;
    EXPECT_EQ(out, "F/own/Velluto-pcg.txt: written; the one before is F/own/Velluto-pcg.txt.bak\nF/own/Velluto-sty.txt: it is so already\n"
                   "sounds that had their place: 1; put into free places: 1; names shortened: 0; without a place: 0\n");
    EXPECT_EQ(Read("own/Velluto-pcg.txt.bak"), old);
    Put("a.csv", "121,0,0,Two\n");
    EXPECT_EQ(Run(Command::Import, "a.csv"), ExitCode::Fine);
    EXPECT_EQ(Read("own/Velluto-pcg.txt.bak"), old);
    EXPECT_NE(Read("own/Velluto-pcg.txt.bak2").find("One"), std::string::npos);
    EXPECT_EQ(Run(Command::Import, "a.csv"), ExitCode::Fine);
    EXPECT_EQ(InOwn(), (std::vector<std::string>{"Velluto-pcg.txt", "Velluto-pcg.txt.bak", "Velluto-pcg.txt.bak2", "Velluto-sty.txt"}));
}

TEST_F(TablesCommandsTest, WhatFindsNoPlaceIsListed)
{
    std::string list;
    for (int lsb = 0; lsb < 13; ++lsb) {
        list += "5," + std::to_string(lsb) + ",21,Caff\xC3\xA8 " + std::to_string(lsb) + "\n";
    }
    Put("a.csv", list);
    EXPECT_EQ(Run(Command::Import, "a.csv"), ExitCode::Fine);
    EXPECT_NE(out.find("\nwithout a place: msb 5, lsb 12, program 21: Caff\xC3\xA8 12\n"), std::string::npos) << out;
}

TEST_F(TablesCommandsTest, TablesGoOutAsTextAndComeBack)
{
    Put("a.csv", "121,0,0,\"A, #\"\n0,3,4,Bossa\n");
    ASSERT_EQ(Run(Command::Import, "a.csv"), ExitCode::Fine);
    const std::string programs = Read("own/Velluto-pcg.txt");
    const std::string styles = Read("own/Velluto-sty.txt");
    EXPECT_EQ(Run(Command::Export, "plain"), ExitCode::Fine);
    fs::create_directory(folder.At("new"));
    EXPECT_EQ(Run(Command::Make, "plain", "new"), ExitCode::Fine) << errors;
    EXPECT_EQ(Read("new/Velluto-pcg.txt"), programs);
    EXPECT_EQ(Read("new/Velluto-sty.txt"), styles);
    EXPECT_EQ(out, "F/new/Velluto-pcg.txt: written\nF/new/Velluto-sty.txt: written\n");
}

TEST_F(TablesCommandsTest, OneTextAloneMakesItsTableAlone)
{
    ASSERT_EQ(Run(Command::Export, "plain"), ExitCode::Fine);
    fs::remove(folder.At("plain/programs.txt"));
    fs::create_directory(folder.At("new"));
    EXPECT_EQ(Run(Command::Make, "plain", "new"), ExitCode::Fine);
    EXPECT_FALSE(fs::exists(folder.At("new/Velluto-pcg.txt")));
    EXPECT_TRUE(fs::exists(folder.At("new/Velluto-sty.txt")));
    EXPECT_EQ(Run(Command::Make, "own", "new"), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/own: there is neither programs.txt nor styles.txt\n");
}

TEST_F(TablesCommandsTest, AMistakeInAListChangesNothing)
{
    Put("a.csv", "121,0,0,One\n121,0,999,Two\n");
    EXPECT_EQ(Run(Command::Import, "a.csv"), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/a.csv:2: program: \"999\" is no number from 0 to 127\n");
    Put("a.ins", std::string("\xFF\xFE.\0P\0", 6));
    EXPECT_EQ(Run(Command::Import, "a.ins"), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/a.ins: is no text in UTF-8 or Windows-1252\n");
    EXPECT_EQ(Run(Command::Import, "a.txt"), ExitCode::Usage);
    EXPECT_EQ(Run(Command::Import, "none.csv"), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/none.csv: does not exist\n");
#ifndef _WIN32 // whose folders hold no pipes
    ASSERT_EQ(::mkfifo(folder.At("pipe.csv").c_str(), 0600), 0);
    EXPECT_EQ(Run(Command::Import, "pipe.csv"), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/pipe.csv: is no ordinary file\n");
#endif
    Put("plain/programs.txt", "group X\n");
    EXPECT_EQ(Run(Command::Make, "plain"), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: F/plain/programs.txt:1: not 2 fields between commas\n");
    EXPECT_EQ(InOwn(), (std::vector<std::string>{"Velluto-pcg.txt", "Velluto-sty.txt"}));
}

TEST_F(TablesCommandsTest, WithoutATableNothingIsImported)
{
    Put("a.csv", "121,0,0,One\n");
    Put("own/Velluto-sty.txt", "");
    EXPECT_EQ(Run(Command::Import, "a.csv"), ExitCode::Unreadable);
    EXPECT_EQ(errors,
              "velluto-tool: F/own/Velluto-sty.txt: the table is not there: start Velluto once, or name another folder with --folder\n");
    EXPECT_EQ(Run(Command::Export, "plain", "nowhere"), ExitCode::Unreadable);
    EXPECT_EQ(Run(Command::Import, "a.csv", ""), ExitCode::Unreadable);
    EXPECT_EQ(errors, "velluto-tool: tables: which the program's folder is cannot be told: name it with --folder\n");
    EXPECT_EQ(Run(Command::Make, "nowhere", "own"), ExitCode::Unreadable);
}

#ifndef _WIN32 // where a link takes a right that few have, and a file no mode
TEST_F(TablesCommandsTest, AReplacedFileKeepsItsModeAndItsLink)
{
    fs::rename(Own("Velluto-pcg.txt"), folder.At("target.txt"));
    fs::permissions(folder.At("target.txt"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(folder.At("target.txt"), Own("Velluto-pcg.txt"));
    std::string kept;
    EXPECT_FALSE(ReplaceKeeping(Own("Velluto-pcg.txt"), "new", kept));
    EXPECT_TRUE(fs::is_symlink(Own("Velluto-pcg.txt")));
    EXPECT_EQ(Read("target.txt"), "new");
    EXPECT_EQ(Shortened(kept), "F/target.txt.bak");
    EXPECT_EQ(fs::status(folder.At("target.txt")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}
#endif

TEST_F(TablesCommandsTest, WhatCannotBeReplacedStays)
{
    std::string kept;
    EXPECT_TRUE(ReplaceKeeping(folder.At("nowhere/file"), "new", kept));
    EXPECT_TRUE(ReplaceKeeping(folder.At("own"), "new", kept)) << "a folder";
    std::ofstream(folder.At("long")).put('x');
    fs::resize_file(folder.At("long"), std::uint64_t{4} << 30);
    EXPECT_EQ(ReplaceKeeping(folder.At("long"), "new", kept), std::errc::file_too_large);
    EXPECT_EQ(kept, "");
    EXPECT_EQ(InOwn(), (std::vector<std::string>{"Velluto-pcg.txt", "Velluto-sty.txt"}));
}

#ifndef _WIN32 // where no launcher says it
TEST_F(TablesCommandsTest, TheUsersFolderIsTheLaunchers)
{
    EXPECT_EQ(UserFolder("", "/home/a"), "/home/a/.local/share/velluto");
    EXPECT_EQ(UserFolder("/data", "/home/a"), "/data/velluto");
    EXPECT_EQ(UserFolder("data", "/home/a"), "/home/a/.local/share/velluto");
    EXPECT_EQ(UserFolder("", ""), "");
}
#endif

} // namespace
} // namespace velluto::tool
