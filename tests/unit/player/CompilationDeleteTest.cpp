// A compilation deleted: its file, its row and what hangs on them.
#include "player/Compilations.h"

#include "unit/player/CompilationRun.h"

namespace velluto::test {
namespace {

using CompilationDelete = CompilationRun;

TEST_F(CompilationDelete, RemovesTheFileAndTheRow)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"b.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    ASSERT_EQ(settings().PlayerName, "one");
    Press(form().CommCanc);
    EXPECT_FALSE(std::filesystem::exists(At("c-one.cmp")));
    EXPECT_EQ(form().ListComp.Rows(), Rows{"two"});
    EXPECT_EQ(form().Text2.text.Get(), "");
    EXPECT_EQ(settings().PlayerName, "");
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 0);
    EXPECT_EQ(state().image, "");
    EXPECT_FALSE(form().CommCanc.enabled);
    EXPECT_FALSE(state().SelectionGuard);
}

TEST_F(CompilationDelete, LeavesTheNameOfAnotherOnesOpenFile)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"b.mid"});
    Start();
    Click(form().ListComp, 1);
    Click(form().ListMidiCorr, 0);
    Click(form().ListComp, 0);
    Press(form().CommCanc);
    EXPECT_EQ(settings().PlayerName, "two");
    EXPECT_EQ(state().CompilationIndex, 0); // still that of "two"
}

TEST_F(CompilationDelete, RemovesTheRowOfTheNameAndTheFileOfTheSelectedRow)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"b.mid"});
    Start();
    Click(form().ListComp, 0);
    state().SelectionGuard = true; // as the previous button leaves it in the folder's list
    Click(form().ListComp, 1);
    ASSERT_EQ(form().Text2.text.Get(), "one");
    Press(form().CommCanc);
    EXPECT_TRUE(std::filesystem::exists(At("c-one.cmp")));
    EXPECT_FALSE(std::filesystem::exists(At("c-two.cmp")));
    EXPECT_EQ(form().ListComp.Rows(), Rows{"two"});
    EXPECT_EQ(form().ListComp.ListIndex(), 0); // the selected row has moved up
}

TEST_F(CompilationDelete, OfANameThatNoRowHasLeavesTheRows)
{
    Compilation("one", {"a.mid"});
    Start();
    Click(form().ListComp, 0);
    state().SelectionGuard = true;
    Do("type frmMIDIPlayer Text2 other");
    Press(form().CommCanc);
    EXPECT_FALSE(std::filesystem::exists(At("c-one.cmp")));
    EXPECT_EQ(form().ListComp.Rows(), Rows{"one"});
    EXPECT_EQ(form().Text2.text.Get(), "");
}

TEST_F(CompilationDelete, OfANameThatTwoRowsHaveRemovesTheFirst)
{
    Compilation("one", {"a.mid"});
    Compilation("two", {"b.mid"});
    Start();
    Click(form().ListComp, 1);
    Do("type frmMIDIPlayer Text2 one"); // the second row is "one" too now
    Press(form().CommCanc);
    EXPECT_FALSE(std::filesystem::exists(At("c-one.cmp")));
    EXPECT_EQ(form().ListComp.Rows(), Rows{"one"});
    EXPECT_EQ(form().ListComp.ListIndex(), 0);
}

TEST_F(CompilationDelete, DropsTheChanges)
{
    Compilation("one", {"a.mid", "b.mid"});
    Compilation("two", {"c.mid"});
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    Press(form().CommRim);
    Press(form().CommCanc);
    EXPECT_FALSE(state().CompilationDirty);
    Click(form().ListComp, 0);
    EXPECT_FALSE(std::filesystem::exists(At("c-one.cmp")));
    EXPECT_FALSE(std::filesystem::exists(At("c-.cmp")));
}

TEST_F(CompilationDelete, NeedsANameAndARow)
{
    Compilation("one", {"a.mid"});
    Start();
    form().CommCanc.enabled = true;
    Press(form().CommCanc);
    Do("type frmMIDIPlayer Text2 one");
    Press(form().CommCanc);
    EXPECT_TRUE(form().CommCanc.enabled);
    EXPECT_TRUE(std::filesystem::exists(At("c-one.cmp")));
}

TEST_F(CompilationDelete, OfAFileThatIsNotThereSetsTheFlag)
{
    Start();
    NewCompilation("mix");
    form().CommCanc.enabled = true;
    Press(form().CommCanc);
    EXPECT_TRUE(state().NotFound);
    EXPECT_EQ(form().ListComp.Rows(), Rows{"mix"});
    EXPECT_TRUE(session.face.boxes.empty());
}

TEST_F(CompilationDelete, InAFolderThatIsNotThereIsTold)
{
    Compilation("mix", {"a.mid"});
    Start();
    Click(form().ListComp, 0);
    session.files.faults.push_back({FileFault::Operation::Delete, At("c-mix.cmp"), FileError::kPathNotFound, 1});
    Press(form().CommCanc);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].title, At("c-mix.cmp") + " Deleting");
    EXPECT_EQ(session.face.boxes[0].text, "Path not found");
    EXPECT_EQ(form().ListComp.Rows(), Rows{"mix"});
}

} // namespace
} // namespace velluto::test
