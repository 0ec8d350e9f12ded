// What Program, Style and Performance windows do alike with their changes, run on each of the three: close, save, save
// under another name, a new file.
#include "unit/files/DocumentKinds.h"

namespace velluto::test {
namespace {

class DocumentChangesTest : public EachDocumentTest {};

TEST_P(DocumentChangesTest, CancelKeepsAChangedWindowAndEndsAnExit)
{
    OpenFile(PutFile("a"));
    MarkModified(Window(1));
    run.face.answers.push_back(Box::kCancel);
    EXPECT_FALSE(run.Exit());
    EXPECT_TRUE(Has(1));
    EXPECT_FALSE(app.children.ClosingAll);
    EXPECT_EQ(run.face.boxes.back().title.substr(0, kind.question.size()), kind.question);
    EXPECT_EQ(run.face.boxes.back().text, "Il file è stato modificato\r\nSalvare le modifiche ?");
}

TEST_P(DocumentChangesTest, NoLetsTheChangesGo)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    Form &window = Window(1);
    window.Tag.image = ImageOf(InstrumentFile({}));
    MarkModified(window);
    window.Tag.Set(TagPosition::ProgramEdited, 1);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(window.Form_QueryUnload());
    EXPECT_EQ(window.Tag.At(kind.clearedByNo), 0);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(run.Close(window));
    EXPECT_EQ(ReadBytes(path), kind.file);
}

TEST_P(DocumentChangesTest, YesSavesAndAFailingSaveKeepsTheWindow)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    const Bytes edited = InstrumentFile({Sized("New", 1, 77)});
    Window(1).Tag.image = ImageOf(edited);
    MarkModified(Window(1));
    Fail(FileFault::Operation::Write, path, 57);
    run.face.answers.push_back(Box::kYes);
    EXPECT_FALSE(run.Close(Window(1)));
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Modified), 1);
    run.face.answers.push_back(Box::kYes);
    EXPECT_TRUE(run.Close(Window(1)));
    EXPECT_EQ(ReadBytes(path), edited);
}

TEST_P(DocumentChangesTest, SaveWritesTheImageAsItStands)
{
    const std::string path = PutFile("a");
    OpenFile(path);
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(ReadBytes(path), kind.file) << "opening and saving changes no byte";
    Window(1).Tag.image = ImageOf(InstrumentFile({}));
    MarkModified(Window(1));
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(ReadBytes(path), InstrumentFile({}));
    EXPECT_EQ(Window(1).Tag.At(TagPosition::Modified), 0);
}

TEST_P(DocumentChangesTest, SaveAsTakesTheNewNameAndOnlyProgramRecordsFollow)
{
    const std::string path = PutFile("a");
    const std::string other = run.At("b" + kind.extension);
    OpenFile(path);
    SaveAs(other);
    EXPECT_EQ(run.face.dialogs.back().filterIndex, type.filterIndex);
    EXPECT_EQ(run.face.dialogs.back().extension, kind.extension.substr(1));
    EXPECT_EQ(run.face.dialogs.back().proposed, "SenzaNome" + kind.extension);
    EXPECT_EQ(ReadBytes(other), kind.file);
    EXPECT_TRUE(Exists(path)) << "the old file stays";
    EXPECT_EQ(Window(1).Tag.Path(), other);
    EXPECT_EQ(Window(1).caption.Get().substr(0, 16), "File User: b" + kind.extension);
    EXPECT_EQ(Record(1).Path.Trimmed(), &type == &files.programs ? other : path);
}

TEST_P(DocumentChangesTest, ANewFileAsksForItsNameAndItsCommandIsOffUntilItCloses)
{
    EXPECT_TRUE(run.Choose(NewEntry()));
    Form &window = Window(kind.newSlot);
    EXPECT_FALSE(run.Choose(NewEntry()));
    EXPECT_EQ(window.Tag.At(TagPosition::Untitled), 1);
    window.Tag.image = ImageOf(kind.file);
    MarkModified(window);
    run.face.answers.push_back(Box::kYes);
    EXPECT_FALSE(run.Close(window)) << "the dialog is cancelled";
    run.face.choices.push_back({false, run.At("new" + kind.extension), 1});
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(ReadBytes(run.At("new" + kind.extension)), kind.file);
    EXPECT_EQ(window.Tag.At(TagPosition::Untitled), 0);
    EXPECT_FALSE(NewEntry().enabled) << "a real path, but still the slot of the new file";
    EXPECT_TRUE(run.Close(window));
    EXPECT_TRUE(NewEntry().enabled);
}

TEST_P(DocumentChangesTest, AWindowWithoutChangesAsksNothing)
{
    OpenFile(PutFile("a"));
    run.Choose(NewEntry());
    EXPECT_TRUE(run.Exit());
    EXPECT_THAT(Boxes(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Files, DocumentChangesTest, ::testing::ValuesIn(DocumentKinds()), NameOfKind);

} // namespace
} // namespace velluto::test
