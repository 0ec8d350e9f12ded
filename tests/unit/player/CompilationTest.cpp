// Compilations: their files and their list.
#include "player/CompilationFiles.h"
#include "player/Compilations.h"

#include "unit/player/CompilationRun.h"
#include "unit/support/HiddenFile.h"

namespace velluto::test {
namespace {

using testing::ElementsAre;

using Compilations = CompilationRun;

TEST_F(Compilations, TheListHoldsTheNamesOfTheFilesBesideTheProgram)
{
    Compilation("beta", {"a.mid"});
    Compilation("Alpha", {"a.mid"});
    WriteText("odd.cmp", "");
    WriteText("c-gamma.txt", "");
    Start();
    // Each name loses its last four characters and its first two, whatever they are.
    EXPECT_EQ(form().ListComp.Rows(), (Rows{"Alpha", "beta", "d"}));
    EXPECT_EQ(form().File1.Rows(), (Rows{"c-Alpha.cmp", "c-beta.cmp", "odd.cmp"}));
    EXPECT_EQ(form().Dir1.path, session.Program().app.paths.AppDir);
    EXPECT_FALSE(form().File1.visible);
    EXPECT_FALSE(form().Dir1.visible);
    EXPECT_EQ(form().ListComp.ListIndex(), -1);
    EXPECT_FALSE(form().CommCanc.enabled);
}

TEST_F(Compilations, AMangledNameLosesCharactersAndNotBytes)
{
    WriteText("\xC3\xA8-x.cmp", "");
    WriteText(".cmp", "");
    Hide(At(".cmp"));
    WriteText("a.cmp", "");
    Start();
    EXPECT_EQ(form().ListComp.Rows(), (Rows{"", "x"}));
}

TEST_F(Compilations, AClickShowsItsFilesWithTheirLengths)
{
    Compilation("mix", {"a.mid", "b.mid"});
    WriteBytes(At("d/b.mid"), Bytes(12345, 0));
    Start();
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.Rows(), (Rows{"a.mid   (3)", "b.mid   (12345)"}));
    EXPECT_EQ(form().Text2.text.Get(), "mix");
    EXPECT_EQ(state().CompilationName, "mix");
    EXPECT_TRUE(form().CommCanc.enabled);
    EXPECT_TRUE(form().CommRimAll.enabled);
    EXPECT_FALSE(form().CommRim.enabled);
    EXPECT_FALSE(state().CompilationDirty);
}

TEST_F(Compilations, AnEmptyOneHasNoRowsAndNothingToRemove)
{
    WriteText("c-none.cmp", "");
    WriteText("c-mark.cmp", "\xFF");
    Start();
    for (const int row : {0, 1}) {
        Click(form().ListComp, row);
        EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
        EXPECT_FALSE(form().CommRimAll.enabled);
    }
}

TEST_F(Compilations, AFileThatIsNotThereEndsTheList)
{
    Compilation("mix", {"a.mid", "b.mid", "c.mid"});
    std::filesystem::remove(At("d/b.mid"));
    Start();
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.Rows(), Rows{"a.mid   (3)"});
    EXPECT_TRUE(state().NotFound);
    EXPECT_TRUE(session.face.boxes.empty());
    EXPECT_TRUE(form().CommRimAll.enabled); // the click goes on behind the list
}

TEST_F(Compilations, AFolderThatIsNotThereIsTold)
{
    WriteText("c-mix.cmp", "\1/no such folder\0a.mid\0\xFF"s);
    Start();
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].title, "/no such folder" + Native("/a.mid") + " Opening ");
    EXPECT_EQ(session.face.boxes[0].text, "Path not found");
    EXPECT_FALSE(state().NotFound);
}

TEST_F(Compilations, AVanishedOneStaysAway)
{
    Compilation("mix", {"a.mid"});
    Start();
    std::filesystem::remove(At("c-mix.cmp"));
    Click(form().ListComp, 0);
    EXPECT_TRUE(state().NotFound);
    EXPECT_TRUE(session.face.boxes.empty());
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    EXPECT_FALSE(std::filesystem::exists(At("c-mix.cmp")));
}

TEST_F(Compilations, ADiskThatGetsReadyIsReadInTheEnd)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    session.files.faults.push_back({FileFault::Operation::Open, At("d/b.mid"), FileError::kDiskNotReady, 3});
    session.files.faults.push_back({FileFault::Operation::Read, At("c-mix.cmp"), FileError::kDiskNotReady, 2});
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 2);
    EXPECT_TRUE(session.face.boxes.empty());
}

TEST_F(Compilations, ADiskThatNeverGetsReadyEndsTheListAllTheSame)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    session.files.faults.push_back({FileFault::Operation::Open, At("d/b.mid"), FileError::kDiskNotReady, 1000000});
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 1);
    EXPECT_TRUE(session.face.boxes.empty());
}

TEST_F(Compilations, AnyOtherErrorPassesWithoutAMessage)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    session.files.faults.push_back({FileFault::Operation::Read, At("c-mix.cmp"), FileError::kDeviceInputOutput, 1});
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    EXPECT_TRUE(session.face.boxes.empty());
    session.files.faults.push_back({FileFault::Operation::Open, At("d/b.mid"), FileError::kPathFileAccess, 1});
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 1);
    EXPECT_TRUE(session.face.boxes.empty());
}

TEST_F(Compilations, AFileLongerThanAnyIsToldAndNotRead)
{
    WriteText("c-mix.cmp", "\1"s);
    std::filesystem::resize_file(At("c-mix.cmp"), std::uint64_t{4} << 30);
    Start();
    session.files.calls.clear();
    Click(form().ListComp, 0);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].title, At("c-mix.cmp") + " Opening ");
    EXPECT_EQ(session.face.boxes[0].text, "Data format error");
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    EXPECT_EQ(session.files.calls, std::vector<std::string>{"open " + At("c-mix.cmp")});
    std::filesystem::resize_file(At("c-mix.cmp"), kLongestCompilation + 1);
    Click(form().ListComp, 0);
    EXPECT_EQ(session.face.boxes.size(), 2U);
}

TEST_F(Compilations, AnImageOfWholeRecordsCostsOneMoreRead)
{
    Start();
    const std::string path = At("c-long.cmp");
    const std::string head = "\1" + At("d") + "\0"s;
    for (const auto &[length, reads] : {std::pair{499, 2}, {500, 3}, {501, 3}, {0, 1}, {1, 1}, {250, 2}}) {
        std::string whole = head + std::string(600, 'n');
        whole.resize(static_cast<std::size_t>(length));
        WriteText("c-long.cmp", whole);
        session.files.calls.clear();
        std::string image = "old";
        EXPECT_FALSE(ReadCompilation(session.Program().app, path, image).Failed());
        EXPECT_EQ(image, whole);
        EXPECT_EQ(ReadsOf(path), reads) << length;
    }
}

TEST_F(Compilations, SavingWritesTheImageAndNothingElse)
{
    Start();
    NewCompilation("mix");
    for (const std::size_t length : {1000U, 999U, 1U, 0U, 250U}) {
        state().image = std::string(length, 'i');
        EXPECT_FALSE(SaveCompilation(form()).Failed());
        EXPECT_EQ(ReadText("c-mix.cmp"), state().image) << length; // a longer one before it leaves no rest
    }
}

TEST_F(Compilations, SavingWithoutANameWritesNothingAndStaysDirty)
{
    Start();
    state().image = "i";
    state().CompilationDirty = true;
    EXPECT_FALSE(SaveCompilation(form()).Failed());
    EXPECT_TRUE(state().CompilationDirty);
    EXPECT_FALSE(std::filesystem::exists(At("c-.cmp")));
}

TEST_F(Compilations, NewPutsANamelessRowOnTop)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"a.mid"});
    Start();
    Click(form().ListComp, 1);
    Press(form().CommNuovo);
    EXPECT_EQ(form().ListComp.Rows(), (Rows{"", "one", "two"}));
    EXPECT_EQ(form().ListComp.ListIndex(), 0);
    EXPECT_THAT(Selected(form().ListComp), ElementsAre(0));
    EXPECT_EQ(form().Text2.text.Get(), "");
    EXPECT_EQ(state().CompilationName, "");
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    EXPECT_EQ(state().image, "");
    EXPECT_FALSE(form().CommNuovo.enabled);
    EXPECT_FALSE(form().CommCanc.enabled);
    EXPECT_FALSE(form().CommRimAll.enabled);
    EXPECT_FALSE(state().CompilationDirty);
}

TEST_F(Compilations, NewInAnEmptyListAddsItsFirstRow)
{
    Start();
    Press(form().CommNuovo);
    EXPECT_EQ(form().ListComp.Rows(), Rows{""});
    EXPECT_EQ(form().ListComp.ListIndex(), 0);
}

TEST_F(Compilations, NewFirstSavesWhatWasChanged)
{
    Compilation("mix", {"a.mid", "b.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    Press(form().CommRim);
    Press(form().CommNuovo);
    EXPECT_EQ(ReadText("c-mix.cmp"), Image({"b.mid"}));
    EXPECT_FALSE(state().CompilationDirty);
}

TEST_F(Compilations, ATypedNameIsTheNameOfTheSelectedOne)
{
    Compilation("mix", {"a.mid"});
    Start();
    Click(form().ListComp, 0);
    EXPECT_FALSE(state().CompilationDirty);
    Press(form().CommNuovo);
    Click(form().ListComp, 1);
    Do("type frmMIDIPlayer Text2 best");
    EXPECT_EQ(form().ListComp.Rows(), (Rows{"", "best"}));
    EXPECT_TRUE(form().CommNuovo.enabled);
    EXPECT_TRUE(state().CompilationDirty);
    Click(form().ListComp, 0); // saves under the new name; the old file stays
    EXPECT_EQ(ReadText("c-best.cmp"), Image({"a.mid"}));
    EXPECT_EQ(ReadText("c-mix.cmp"), Image({"a.mid"}));
}

TEST_F(Compilations, ANameTypedWithoutASelectedOneRenamesNothing)
{
    Compilation("mix", {"a.mid"});
    Start();
    Do("type frmMIDIPlayer Text2 best");
    EXPECT_EQ(form().ListComp.Rows(), Rows{"mix"});
    EXPECT_FALSE(state().CompilationDirty);
}

TEST_F(Compilations, AnotherOneIsOnlyShownOnceTheChangesAreSaved)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"b.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    Press(form().CommRim);
    session.files.faults.push_back({FileFault::Operation::Open, At("c-one.cmp"), FileError::kPathNotFound, 1});
    Click(form().ListComp, 1);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].title, At("c-one.cmp") + " Saving ");
    EXPECT_EQ(form().Text2.text.Get(), "one");
    EXPECT_TRUE(state().CompilationDirty);
    Click(form().ListComp, 1);
    EXPECT_EQ(form().Text2.text.Get(), "two");
    EXPECT_EQ(ReadText("c-one.cmp"), "");
}

TEST_F(Compilations, OneThatCannotBeWrittenStaysChangedWithoutAWordUntilItIs)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"b.mid"});
    Start();
    Click(form().ListComp, 0);
    Press(form().CommRimAll);
    for (const auto operation : {FileFault::Operation::Open, FileFault::Operation::Write}) {
        for (const int number : {FileError::kDiskFull, FileError::kPathFileAccess, FileError::kDeviceInputOutput}) {
            state().image = "new";
            session.files.faults = {{operation, At("c-one.cmp"), number, 1}};
            Click(form().ListComp, 1);
            EXPECT_TRUE(session.face.boxes.empty()) << number;
            EXPECT_EQ(form().Text2.text.Get(), "one") << number;
            EXPECT_EQ(state().image, "new") << number;
            EXPECT_TRUE(state().CompilationDirty) << number;
        }
    }
    Click(form().ListComp, 1);
    EXPECT_EQ(form().Text2.text.Get(), "two");
    EXPECT_EQ(ReadText("c-one.cmp"), "new");
}

TEST_F(Compilations, OneThatCannotBeWrittenAtTheEndOfItsWindowIsGivenUpWithoutAWord)
{
    Compilation("one", {"a.mid"});
    Start();
    Click(form().ListComp, 0);
    Press(form().CommRimAll);
    session.files.faults = {{FileFault::Operation::Open, At("c-one.cmp"), FileError::kPathFileAccess, 1}};
    Do("close frmMIDIPlayer");
    EXPECT_TRUE(session.face.boxes.empty());
    EXPECT_EQ(ReadText("c-one.cmp"), Image({"a.mid"}));
    Start();
    Click(form().ListComp, 0);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 1);
}

TEST_F(Compilations, TheOneOfTheOpenFileShowsItsRowAgain)
{
    Compilation("one", {"a.mid", "b.mid"});
    Compilation("two", {"c.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Click(form().ListComp, 1);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre());
    Click(form().ListComp, 0);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(1));
    EXPECT_EQ(form().ListMidiCorr.ListIndex(), 1);
    EXPECT_FALSE(state().SelectionGuard);
}

TEST_F(Compilations, NothingCanBeRemovedWhileOneOfTheFilesPlays)
{
    Compilation("one", {"a.mid", "b.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    Transport(2);
    EXPECT_FALSE(form().CommRimAll.enabled);
    Click(form().ListComp, 0);
    EXPECT_FALSE(form().CommRimAll.enabled);
    EXPECT_FALSE(form().CommRim.enabled);
}

} // namespace
} // namespace velluto::test
