// Reading a file whole and deciding whether it is an instrument's.
#include "unit/files/InstrumentFiles.h"

namespace velluto::test {
namespace {

constexpr std::uint64_t kFourGigabytes = 4ULL << 30;

class ReadInstrumentFileTest : public FilesTest {
protected:
    int Read(const std::string &path)
    {
        Boxes();
        run.files.calls.clear();
        return ReadInstrumentFile(files, path);
    }
};

TEST_F(ReadInstrumentFileTest, AGoodFileIsReadWhole)
{
    const Bytes bytes = InstrumentFile({{"Grand Piano", 0, {1, 2, 3}}});
    const std::string path = Put("a.pcg", bytes);
    EXPECT_EQ(Read(path), ReadStatus::Good);
    EXPECT_EQ(BytesOf(files.LoadImage), bytes);
    EXPECT_EQ(app.CurrentOperation, "Apertura di a.pcg");
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_EQ(Calls("read " + path), 1) << "in one read";
}

TEST_F(ReadInstrumentFileTest, AnEmptyFileIsMissingAndGoneAfterwards)
{
    const std::string path = Put("empty.pcg", {});
    files.LoadImage = ImageOf({1, 2, 3});
    EXPECT_EQ(Read(path), ReadStatus::Missing);
    EXPECT_FALSE(Exists(path));
    EXPECT_EQ(BytesOf(files.LoadImage), (Bytes{1, 2, 3})) << "what was read before stays";
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(ReadInstrumentFileTest, AMissingFileIsMissingAndLeavesNoFile)
{
    EXPECT_EQ(Read(run.At("nowhere.pcg")), ReadStatus::Missing);
    EXPECT_FALSE(Exists(run.At("nowhere.pcg")));
    EXPECT_THAT(Boxes(), IsEmpty());
}

#ifndef _WIN32 // where a link takes a right that few have
TEST_F(ReadInstrumentFileTest, ALinkToAMissingFileStaysAndLeavesNoFile)
{
    std::filesystem::create_symlink("none.pcg", run.At("link.pcg"));
    EXPECT_EQ(Read(run.At("link.pcg")), ReadStatus::Missing);
    EXPECT_TRUE(std::filesystem::is_symlink(run.At("link.pcg")));
    EXPECT_FALSE(Exists(run.At("none.pcg")));
}
#endif

TEST_F(ReadInstrumentFileTest, FilesOfExactBlockLengthsAreReadWhole)
{
    for (const std::size_t length : {9999U, 10000U, 10001U, 20000U, 20001U, 1000000U}) {
        const std::string path = Put("exact.pcg", FileOfLength(length));
        EXPECT_EQ(Read(path), ReadStatus::Good) << length;
        EXPECT_EQ(BytesOf(files.LoadImage), FileOfLength(length)) << length;
    }
}

TEST_F(ReadInstrumentFileTest, TheMarkAloneDoesNotMakeAnInstrumentFile)
{
    Bytes bytes = InstrumentFile({{"A", 0, {1}}});
    bytes[3] = 0x15;
    EXPECT_EQ(Read(Put("a.pcg", bytes)), ReadStatus::NotAnInstrumentFile);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: Formato dati errato"));
    EXPECT_EQ(BytesOf(files.LoadImage), bytes);
}

TEST_F(ReadInstrumentFileTest, ALastByteOtherThanTheCountPlusOneIsRefused)
{
    Bytes bytes = InstrumentFile({{"A", 0, {1}}});
    bytes.back() = 1;
    EXPECT_EQ(Read(Put("a.pcg", bytes)), ReadStatus::NotAnInstrumentFile);
}

TEST_F(ReadInstrumentFileTest, AFileOf255ItemsCannotPass)
{
    std::vector<Item> items(254, Item{"Item", 0, {}});
    EXPECT_EQ(Read(Put("a.pcg", InstrumentFile(items))), ReadStatus::Good);
    items.emplace_back();
    EXPECT_EQ(Read(Put("b.pcg", InstrumentFile(items))), ReadStatus::NotAnInstrumentFile);
}

TEST_F(ReadInstrumentFileTest, Offset16AndTheOuterLengthAreNotTested)
{
    Bytes bytes = InstrumentFile({{"A", 0, {1}}});
    bytes[16] = 0x0C;
    bytes[5] = bytes[6] = bytes[7] = 0xFF;
    EXPECT_EQ(Read(Put("a.pcg", bytes)), ReadStatus::Good);
}

TEST_F(ReadInstrumentFileTest, PictureAndPageNamesPassUnseenWithAllTheirContent)
{
    const Bytes anything{'n', 'o', 't', ' ', 'm', 'u', 's', 'i', 'c'};
    for (const char *name : {"a.bmp", "a.BMP", "a.htm", "a.Html", "a.gif", "a.JPG"}) {
        EXPECT_EQ(Read(Put(name, anything)), ReadStatus::Good) << name;
        EXPECT_EQ(BytesOf(files.LoadImage), anything) << name;
    }
    EXPECT_EQ(Read(Put("a.jpeg", anything)), ReadStatus::NotAnInstrumentFile);
    EXPECT_EQ(Read(Put("bmp", anything)), ReadStatus::NotAnInstrumentFile) << "its folder stands before the name";
}

TEST_F(ReadInstrumentFileTest, AnEmptyPictureIsMissingLikeAnyOther)
{
    const std::string path = Put("a.bmp", {});
    EXPECT_EQ(Read(path), ReadStatus::Missing);
    EXPECT_FALSE(Exists(path));
}

TEST_F(ReadInstrumentFileTest, FailuresAreToldByTheirNumbers)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    const std::vector<std::pair<int, std::string>> told{{56, "Errore I/O periferica"},           {57, "Errore di lettura da disco"},
                                                        {61, "Errore di lettura da disco"},      {75, "File di sola lettura"},
                                                        {76, "Impossibile trovare il percorso"}, {51, "Errore di lettura da disco"}};
    for (const auto operation : {FileFault::Operation::Open, FileFault::Operation::Read}) {
        for (const auto &[number, text] : told) {
            run.files.faults.clear();
            Fail(operation, path, number);
            EXPECT_EQ(Read(path), ReadStatus::InputOutputError) << number;
            EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: " + text)) << number;
        }
    }
    EXPECT_TRUE(Exists(path));
}

TEST_F(ReadInstrumentFileTest, ADiskThatIsNotReadyIsAskedAgainUntilItIs)
{
    const std::string path = Put("a.pcg", FileOfLength(200));
    Fail(FileFault::Operation::Open, path, 71, 2);
    Fail(FileFault::Operation::Read, path, 71, 1);
    EXPECT_EQ(Read(path), ReadStatus::Good);
    const std::string box = "Apertura di a.pcg: Disco non pronto o non formattato";
    EXPECT_THAT(Boxes(), ElementsAre(box, box, box));
    EXPECT_EQ(Calls("open " + path), 3);
    EXPECT_EQ(Calls("read " + path), 2) << "only the failed operation is repeated";
    EXPECT_EQ(BytesOf(files.LoadImage), FileOfLength(200));
}

TEST_F(ReadInstrumentFileTest, TheDeletionOfAnEmptyFileCanFailAndIsRepeated)
{
    const std::string path = Put("empty.pcg", {});
    Fail(FileFault::Operation::Delete, path, 71);
    EXPECT_EQ(Read(path), ReadStatus::Missing);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di empty.pcg: Disco non pronto o non formattato"));
    EXPECT_FALSE(Exists(path));

    Put("empty.pcg", {});
    Fail(FileFault::Operation::Delete, path, 75);
    EXPECT_EQ(Read(path), ReadStatus::InputOutputError);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di empty.pcg: File di sola lettura"));
}

TEST_F(ReadInstrumentFileTest, AFolderIsNoFile)
{
    std::filesystem::create_directory(run.At("folder.pcg"));
    EXPECT_EQ(Read(run.At("folder.pcg")), ReadStatus::InputOutputError);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di folder.pcg: File di sola lettura"));
    EXPECT_TRUE(Exists(run.At("folder.pcg")));
}

TEST_F(ReadInstrumentFileTest, AMissingFolderIsAPathNotFound)
{
    EXPECT_EQ(Read(run.At("gone/a.pcg")), ReadStatus::InputOutputError);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di a.pcg: Impossibile trovare il percorso"));
}

TEST_F(ReadInstrumentFileTest, AFileOfFourGigabytesIsRefusedWithoutReadingItsBody)
{
    const std::string path = Put("huge.pcg", {0});
    std::filesystem::resize_file(path, kFourGigabytes);
    EXPECT_EQ(Read(path), ReadStatus::NotAnInstrumentFile);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di huge.pcg: Formato dati errato"));
    EXPECT_TRUE(files.LoadImage.empty());
    EXPECT_EQ(std::filesystem::file_size(path), kFourGigabytes);
}

TEST_F(ReadInstrumentFileTest, AFileTooLargeForTheMemoryIsAReadingError)
{
    const Bytes valid = InstrumentFile({});
    const std::string path = Put("huge.pcg", valid);
    std::filesystem::resize_file(path, kFourGigabytes);
    std::fstream file(path, std::ios::binary | std::ios::in | std::ios::out);
    file.seekp(static_cast<std::streamoff>(kFourGigabytes - 1));
    file.put(1);
    file.close();
    EXPECT_EQ(Read(path), ReadStatus::InputOutputError);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di huge.pcg: Errore di lettura da disco"));

    const std::string picture = Put("huge.bmp", {0});
    std::filesystem::resize_file(picture, kFourGigabytes);
    EXPECT_EQ(Read(picture), ReadStatus::InputOutputError);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di huge.bmp: Errore di lettura da disco"));
}

TEST_F(ReadInstrumentFileTest, ALongFileIsReadWholeAfterALookAtItsEnds)
{
    const std::string path = Put("long.pcg", FileOfLength((32U << 20) + 1));
    EXPECT_EQ(Read(path), ReadStatus::Good);
    EXPECT_EQ(files.LoadImage.size(), (32U << 20) + 1);
    EXPECT_TRUE(IsInstrumentFile(files.LoadImage.View()));
    EXPECT_EQ(Calls("read " + path), 3);

    Fail(FileFault::Operation::Read, path, 71, 2);
    EXPECT_EQ(Read(path), ReadStatus::Good);
    EXPECT_EQ(Boxes().size(), 2U);
}

TEST_F(ReadInstrumentFileTest, APathThatFitsNoRecordIsRefusedBeforeAnythingIsOpened)
{
    const std::string name(230, 'n');
    const std::string path = run.At(name + ".pcg");
    EXPECT_EQ(Read(path), ReadStatus::InputOutputError);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di " + name + ".pcg: Impossibile trovare il percorso"));
    EXPECT_THAT(run.files.calls, IsEmpty());
}

TEST_F(ReadInstrumentFileTest, SmallDamagedFilesPassOrFailWithoutHarm)
{
    const Bytes good = InstrumentFile({{"A", 0, {9, 8, 7}}});
    for (std::size_t length = 1; length < good.size(); ++length) {
        EXPECT_EQ(Read(Put("cut.pcg", Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length)))),
                  ReadStatus::NotAnInstrumentFile)
            << length;
    }
}

TEST_F(ReadInstrumentFileTest, WhatIsRefusedStaysAsItWas)
{
    Bytes damaged = InstrumentFile({{"A", 0, {9, 8, 7}}});
    damaged.pop_back();
    for (const Bytes &bytes : {damaged, Bytes{1, 2, 3}, Bytes(5000, 0xFF)}) {
        const std::string path = Put("a.pcg", bytes);
        run.files.calls.clear();
        EXPECT_EQ(Read(path), ReadStatus::NotAnInstrumentFile);
        EXPECT_EQ(ReadBytes(path), bytes);
        EXPECT_EQ(Calls("write " + path), 0);
        EXPECT_EQ(Calls("delete " + path), 0);
    }
}

class ReadInstrumentFileEnglishTest : public EnglishFilesTest {};

TEST_F(ReadInstrumentFileEnglishTest, TellsItInEnglish)
{
    EXPECT_EQ(ReadInstrumentFile(files, Put("a.pcg", {1, 2, 3})), ReadStatus::NotAnInstrumentFile);
    EXPECT_THAT(Boxes(), ElementsAre("Opening a.pcg: Data format error"));
}

} // namespace
} // namespace velluto::test
