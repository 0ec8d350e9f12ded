// The command line.
#include "tool/Arguments.h"

#include <gtest/gtest.h>

namespace velluto::tool {
namespace {

using Line = std::vector<std::string>;

Arguments Parsed(const Line &line)
{
    std::string complaint;
    const auto arguments = ParseArguments(line, kEnglishBase, complaint);
    EXPECT_TRUE(arguments) << complaint;
    return arguments.value_or(Arguments{});
}

std::string RefusalOf(const Line &line, int linguaBase = kEnglishBase)
{
    std::string complaint;
    EXPECT_FALSE(ParseArguments(line, linguaBase, complaint));
    return complaint;
}

TEST(ToolArguments, ACommandTakesFilesAndOptionsInAnyOrder)
{
    const Arguments list = Parsed({"--csv", "list", "a", "--all", "b"});
    EXPECT_EQ(list.command, Command::List);
    EXPECT_EQ(list.format, Format::Csv);
    EXPECT_TRUE(list.all);
    EXPECT_EQ(list.paths, (Line{"a", "b"}));
    EXPECT_EQ(Parsed({"check", "a", "--json"}).format, Format::Json);
}

TEST(ToolArguments, FindTakesItsWordsFirst)
{
    const Arguments find = Parsed({"find", "grand piano", "a", "b"});
    EXPECT_EQ(find.words, "grand piano");
    EXPECT_EQ(find.paths, (Line{"a", "b"}));
    EXPECT_EQ(RefusalOf({"find"}), "the words to look for are missing");
    EXPECT_EQ(RefusalOf({"find", " ", "a"}), "the words to look for are missing");
    EXPECT_EQ(RefusalOf({"find", "piano"}), "a file or a folder is missing");
}

TEST(ToolArguments, BehindTwoDashesNothingIsAnOption)
{
    EXPECT_EQ(Parsed({"list", "--", "--csv", "-"}).paths, (Line{"--csv", "-"}));
}

TEST(ToolArguments, HelpAndVersionComeBeforeAllElse)
{
    EXPECT_EQ(Parsed({"--help", "--nonsense"}).command, Command::Help);
    EXPECT_EQ(Parsed({"list", "--version"}).command, Command::Version);
}

TEST(ToolArguments, TablesHasThreeCommands)
{
    const Arguments import = Parsed({"tables", "import", "a.ins", "--folder", "f", "--instrument=PA80"});
    EXPECT_EQ(import.command, Command::Import);
    EXPECT_EQ(import.paths, Line{"a.ins"});
    EXPECT_EQ(import.folder, "f");
    EXPECT_EQ(import.instrument, "PA80");
    EXPECT_EQ(Parsed({"tables", "export"}).command, Command::Export);
    EXPECT_EQ(Parsed({"tables", "make", "x"}).command, Command::Make);
    EXPECT_EQ(RefusalOf({"tables"}), "import, export or make belongs behind tables");
    EXPECT_EQ(RefusalOf({"tables", "list"}), "unknown command: list");
    EXPECT_EQ(RefusalOf({"tables", "import"}), "the list to be imported is missing");
    EXPECT_EQ(RefusalOf({"tables", "export", "a", "b"}), "b is one too many");
}

TEST(ToolArguments, WhatIsNoCommandIsTold)
{
    EXPECT_EQ(RefusalOf({}), "a command is missing");
    EXPECT_EQ(RefusalOf({"lost", "a"}), "unknown command: lost");
    EXPECT_EQ(RefusalOf({"lost\x1B"}, kItalianBase), "comando sconosciuto: lost?");
    EXPECT_EQ(RefusalOf({"list", "-x", "a"}), "unknown option: -x");
    EXPECT_EQ(RefusalOf({"list"}), "a file or a folder is missing");
}

TEST(ToolArguments, TheLanguageIsItOrEn)
{
    EXPECT_EQ(LanguageAsked(Line{"list", "--language", "it"}), kItalianBase);
    EXPECT_EQ(LanguageAsked(Line{"--language=it", "--language=en"}), kEnglishBase);
    EXPECT_EQ(LanguageAsked(Line{"list", "--", "--language=it"}), std::nullopt);
    EXPECT_EQ(Parsed({"list", "--language", "it", "a"}).paths, Line{"a"});
    EXPECT_EQ(RefusalOf({"list", "--language", "de", "a"}), "--language wants it or en");
    EXPECT_EQ(RefusalOf({"list", "a", "--language"}), "something is missing behind --language");
}

TEST(ToolArguments, TheHelpNamesEveryCommandInBothLanguages)
{
    for (const int language : {kItalianBase, kEnglishBase}) {
        const std::string help(HelpText(language));
        for (const char *word : {"list ", "find ", "check ", "tables import", "tables export", "tables make", "--folder", "--instrument",
                                 "--csv", "--json", "--all", "--language", "--help", "--version"}) {
            EXPECT_NE(help.find(word), std::string::npos) << word;
        }
    }
}

} // namespace
} // namespace velluto::tool
