// Writing the image of a window to disk: Save, and what happens when that fails.
#include "unit/files/EditedWindows.h"

namespace velluto::test {
namespace {

class SavingTest : public EditedWindowsTest {};

TEST_F(SavingTest, SaveWritesTheImageExactlyAndClearsTheMark)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(777));
    EXPECT_TRUE(run.Choose(app.frame.mnuSalva));
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), FileOfLength(777));
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 0);
    EXPECT_EQ(app.CurrentOperation, "Salva a.pcg");
    EXPECT_EQ(BytesOf(window.Tag.image), FileOfLength(777));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(SavingTest, AnImageInPiecesIsWrittenWholeAndFromItsBeginningWhereItFails)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const FileImage first = ImageOf(FileOfLength(777));
    const FileImage second = ImageOf(Bytes(5000, 0xEE));
    window.Tag.image.Append(first, 100, 600);
    window.Tag.image.Append(second, 0, 5000);
    window.Tag.image.Append(first, 0, 50);
    const std::string path = run.At("a.pcg");
    Fail(FileFault::Operation::Write, path, FileError::kDiskNotReady, 2);
    run.files.calls.clear();
    EXPECT_EQ(SaveDocument(files, window.Tag), 0);
    EXPECT_EQ(ReadBytes(path), BytesOf(window.Tag.image));
    EXPECT_EQ(ReadBytes(path).size(), 300U + 600 + 5000 + 50);
    const std::string write = "write " + path;
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "delete " + path, "open " + path, write, write, write, write, write, write));
}

TEST_F(SavingTest, ImagesAroundTheBlockLengthAreWrittenWhole)
{
    frmPcgUN &window = OpenEdited("a.pcg", {});
    for (const std::size_t length : {0U, 1U, 4999U, 5000U, 5001U, 10000U, 123456U}) {
        Bytes bytes(length);
        for (std::size_t i = 0; i < length; ++i) {
            bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
        }
        window.Tag.image = ImageOf(bytes);
        EXPECT_EQ(SaveDocument(files, window.Tag), 0);
        EXPECT_EQ(ReadBytes(run.At("a.pcg")), bytes) << length;
    }
}

#ifndef _WIN32 // where a link takes a right that few have
TEST_F(SavingTest, ASaveThroughALinkReachesItsTarget)
{
    Put("real.pcg", FileOfLength(200));
    std::filesystem::create_symlink("real.pcg", run.At("link.pcg"));
    Open(run.At("link.pcg"));
    app.children.Active()->Tag.image = ImageOf(FileOfLength(300));
    EXPECT_EQ(SaveDocument(files, app.children.Active()->Tag), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(run.At("link.pcg")));
    EXPECT_EQ(ReadBytes(run.At("real.pcg")), FileOfLength(300));
}
#endif

TEST_F(SavingTest, TheOldFileIsDeletedFirst)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    run.files.calls.clear();
    const std::string path = run.At("a.pcg");
    SaveDocument(files, window.Tag);
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "delete " + path, "open " + path, "write " + path));
}

TEST_F(SavingTest, AFileThatHasGoneIsMadeAnew)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("a.pcg");
    std::filesystem::remove(path);
    run.files.calls.clear();
    EXPECT_EQ(SaveDocument(files, window.Tag), 0);
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "write " + path));
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
}

TEST_F(SavingTest, SaveOfAFileThatIsProtectedSaysSo)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    Fail(FileFault::Operation::Open, run.At("a.pcg"), 75);
    run.Choose(app.frame.mnuSalva);
    EXPECT_THAT(Boxes(), ElementsAre("Salva a.pcg: File di sola lettura"));
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), FileOfLength(200));
}

TEST_F(SavingTest, FailuresOfSaveAreToldByTheirNumbers)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::vector<std::pair<int, std::string>> told{{56, "Errore I/O periferica"},
                                                        {57, "Errore di lettura da disco"},
                                                        {61, "Errore di lettura da disco"},
                                                        {75, "File di sola lettura"},
                                                        {76, "Impossibile trovare il percorso"}};
    for (const auto operation : {FileFault::Operation::Open, FileFault::Operation::Delete, FileFault::Operation::Write}) {
        for (const auto &[number, text] : told) {
            Put("a.pcg", FileOfLength(200));
            Fail(operation, run.At("a.pcg"), number);
            EXPECT_EQ(SaveDocument(files, window.Tag), 1) << number;
            EXPECT_THAT(Boxes(), ElementsAre("Salva a.pcg: " + text)) << number;
            EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
            EXPECT_EQ(BytesOf(window.Tag.image), FileOfLength(300)) << "the image stays";
        }
    }
}

TEST_F(SavingTest, SaveRepeatsWhatADiskThatIsNotReadyRefused)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    const std::string path = run.At("a.pcg");
    Fail(FileFault::Operation::Open, path, 71);
    Fail(FileFault::Operation::Delete, path, 71);
    Fail(FileFault::Operation::Write, path, 71, 2);
    run.files.calls.clear();
    EXPECT_EQ(SaveDocument(files, window.Tag), 0);
    const std::string box = "Salva a.pcg: Disco non pronto o non formattato";
    EXPECT_THAT(Boxes(), ElementsAre(box, box, box, box));
    EXPECT_THAT(run.files.calls, ElementsAre("open " + path, "open " + path, "delete " + path, "delete " + path, "open " + path,
                                             "write " + path, "write " + path, "write " + path));
    EXPECT_EQ(ReadBytes(path), FileOfLength(300));
}

TEST_F(SavingTest, AFailureWhileWritingLosesTheOldFileButNotTheImage)
{
    frmPcgUN &window = OpenEdited("a.pcg", FileOfLength(300));
    Fail(FileFault::Operation::Write, run.At("a.pcg"), 61);
    EXPECT_EQ(SaveDocument(files, window.Tag), 1);
    EXPECT_EQ(ReadBytes(run.At("a.pcg")), Bytes{});
    EXPECT_EQ(BytesOf(window.Tag.image), FileOfLength(300));
    SaveAs(run.At("elsewhere.pcg"));
    EXPECT_EQ(ReadBytes(run.At("elsewhere.pcg")), FileOfLength(300)) << "saved again elsewhere";
}

TEST_F(SavingTest, AFolderThatHasGoneIsAPathNotFound)
{
    std::filesystem::create_directory(run.At("sub"));
    frmPcgUN &window = OpenEdited("sub/a.pcg", FileOfLength(300));
    std::filesystem::remove_all(run.At("sub"));
    EXPECT_EQ(SaveDocument(files, window.Tag), 1);
    EXPECT_THAT(Boxes(), ElementsAre("Salva a.pcg: Impossibile trovare il percorso"));
}

TEST_F(SavingTest, SaveOfANewFileAsksForItsName)
{
    NewEdited(FileOfLength(300));
    run.face.choices.push_back({false, run.At("new.pcg"), 1});
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(run.face.dialogs.size(), 1U);
    EXPECT_EQ(ReadBytes(run.At("new.pcg")), FileOfLength(300));
    run.Choose(app.frame.mnuSalva);
    EXPECT_EQ(run.face.dialogs.size(), 1U) << "now it has a path";
}

TEST_F(SavingTest, TheFirstBankIsKeptFromTheMenuButNotTheSecond)
{
    Open(Put("a.pcg", FileOfLength(200)));
    Press(Window(1).CommUser[9]);
    Press(Window(1).CommUser[10]);
    run.Choose(app.frame.mnuPcgUser[9]);
    EXPECT_FALSE(run.Choose(app.frame.mnuSalva));
    run.Choose(app.frame.mnuPcgUser[10]);
    EXPECT_TRUE(run.Choose(app.frame.mnuSalva));
}

TEST_F(SavingTest, WithoutAChildTheCommandsDoNothing)
{
    mnuSalva_Click(files);
    mnuSalvaAs_Click(files);
    EXPECT_THAT(run.face.dialogs, IsEmpty());
}

TEST_F(SavingTest, OpenThenSaveIsByteIdenticalForEveryFile)
{
    std::mt19937 random(42);
    for (int round = 0; round < 150; ++round) {
        const Bytes bytes = RandomFile(random);
        const std::string path = Put("random.pcg", bytes);
        Open(path);
        ASSERT_TRUE(HasWindow(1)) << round;
        ASSERT_TRUE(run.Choose(app.frame.mnuSalva));
        ASSERT_EQ(ReadBytes(path), bytes) << round;
        SaveAs(run.At("copy.pcg"));
        ASSERT_EQ(ReadBytes(run.At("copy.pcg")), bytes) << round;
        run.Close(Window(1));
    }
}

class SavingEnglishTest : public EnglishFilesTest {};

TEST_F(SavingEnglishTest, SpeaksEnglish)
{
    Open(Put("a.pcg", FileOfLength(200)));
    run.face.dialogs.clear();
    run.Choose(app.frame.mnuSalvaAs);
    EXPECT_EQ(run.face.dialogs[0].title, "Save file as");
    EXPECT_EQ(run.face.dialogs[0].proposed, "Untitled.pcg");
    Fail(FileFault::Operation::Open, run.At("a.pcg"), 75);
    run.Choose(app.frame.mnuSalva);
    EXPECT_THAT(Boxes(), ElementsAre("Saving a.pcg: Read only file"));
}

} // namespace
} // namespace velluto::test
