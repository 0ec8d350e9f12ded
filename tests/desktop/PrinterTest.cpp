// The printer without a printer: a PDF file where the user wants it, looked at with poppler's tools.
#include "desktop/QtPrinter.h"
#include "desktop/QtText.h"
#include "standin/StandinFace.h"
#include "unit/support/ListWindows.h"
#include "unit/support/TestProgram.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace velluto::test {

namespace {

class PrinterTest : public testing::Test {
protected:
    PrinterTest()
    {
        // A machine without a printer, whatever the one that runs the tests has.
        qputenv("CUPS_SERVER", "127.0.0.1:1");
        printer.Follow(program.app);
        program.app.messages.LinguaBase = kEnglishBase;
    }

    // The file's answer to the next question where to.
    void Choose(const std::string &path) { face.choices.push_back({false, path, 1}); }
    // The font and the place that listings begin with.
    void Begin()
    {
        printer.FontName("courier new");
        printer.FontSize(11);
        printer.FontBold(true);
        printer.CurrentX(kLeft);
        printer.CurrentY(kTop);
    }
    // Lines below each other at the left edge, to the end of the document. What failed first is answered.
    int Document(const std::vector<std::string> &lines)
    {
        Begin();
        for (const std::string &line : lines) {
            printer.CurrentX(kLeft);
            if (const RuntimeError error = printer.Print(line); error.Failed()) {
                return error.number;
            }
        }
        return printer.EndDoc().number;
    }
    // What poppler's tool says of a file in the folder; nothing where it fails.
    [[nodiscard]] QString Told(const char *tool, const QStringList &words) const
    {
#ifdef _WIN32
        // Under Wine it is a program of Linux's, of which one of Windows' hears neither words nor end: VELLUTO_POPPLER names a script that
        // leaves the words in a file once all are there.
        const QString answer = FromUtf8(folder.At("answer"));
        EXPECT_TRUE(QProcess::startDetached(qEnvironmentVariable("VELLUTO_POPPLER"),
                                            QStringList{QStringLiteral("answer"), QString::fromLatin1(tool)} + words,
                                            FromUtf8(folder.Path())));
        EXPECT_TRUE(QTest::qWaitFor([&answer] { return QFile::exists(answer); })) << tool;
        QFile file(answer);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << tool;
        const QString said = QString::fromUtf8(file.readAll());
        EXPECT_TRUE(file.remove());
        return said;
#else
        QProcess process;
        process.setWorkingDirectory(FromUtf8(folder.Path()));
        process.start(QString::fromLatin1(tool), words);
        EXPECT_TRUE(process.waitForFinished()) << tool;
        EXPECT_EQ(process.exitCode(), 0) << tool;
        return QString::fromUtf8(process.readAllStandardOutput());
#endif
    }
    // The words of a file with their places, in points.
    [[nodiscard]] QString BoxesIn(const QString &name) const
    {
        return Told("pdftotext", {QStringLiteral("-bbox"), name, QStringLiteral("-")});
    }
    // The upper edge of the first word.
    static double TopIn(const QString &boxes)
    {
        return QRegularExpression(QStringLiteral("<word .*yMin=\"([0-9.]+)\"")).match(boxes).captured(1).toDouble();
    }
    // The lines of a file on a grid of the font's cells, as far as they go.
    [[nodiscard]] std::vector<std::string> LinesOf(const QString &name) const
    {
        const QString text = Told("pdftotext", {"-fixed", "6.6", name, "-"});
        std::vector<std::string> lines;
        for (const QString &line : text.split(QLatin1Char('\n'))) {
            lines.push_back(line.toStdString());
        }
        while (!lines.empty() && (lines.back().empty() || lines.back() == "\f")) {
            lines.pop_back();
        }
        return lines;
    }

    static constexpr int kEnglishBase = 200;
    static constexpr int kLeft = 453;
    static constexpr int kTop = 1134;
    TempFolder folder;
    FilesFrom machine{folder.Path()};
    StandinMidi midi;
    StandinClock clock;
    StandinFace face;
    QtPrinter printer{face};
    StandinSequencer sequencer;
    MachineFolders folders;
    StandinTicks ticks;
    Velluto program{Ports{machine, midi, clock, printer, sequencer, folders, ticks}, face};
};

TEST_F(PrinterTest, ALineOf84CharactersFitsOnThePaperAndReadsBack)
{
    std::string line;
    for (int i = 0; i < 84; ++i) {
        line += static_cast<char>('!' + i);
    }
    Choose(folder.At("wide.pdf"));
    EXPECT_EQ(Document({line, "second"}), 0);
    // The left edge is three cells and a bit from the paper's.
    EXPECT_EQ(LinesOf(QStringLiteral("wide.pdf")), (std::vector<std::string>{"   " + line, "   second"}));
}

TEST_F(PrinterTest, TextStandsWhereItWasPut)
{
    Choose(folder.At("place.pdf"));
    EXPECT_EQ(Document({"corner"}), 0);
    const QString boxes = BoxesIn(QStringLiteral("place.pdf"));
    // 453 and 1134 twentieths of a point.
    EXPECT_TRUE(boxes.contains(QStringLiteral("<word xMin=\"22.65"))) << boxes.toStdString();
#ifndef _WIN32 // where Qt tells of the font that its letters are less high than they are
    EXPECT_TRUE(boxes.contains(QStringLiteral("yMin=\"56.7")) || boxes.contains(QStringLiteral("yMin=\"56.69"))) << boxes.toStdString();
#endif
    EXPECT_TRUE(boxes.contains(QStringLiteral(">corner<"))) << boxes.toStdString();

    Choose(folder.At("top.pdf"));
    printer.CurrentX(0);
    printer.CurrentY(0);
    ASSERT_FALSE(printer.Print("corner").Failed());
    ASSERT_FALSE(printer.EndDoc().Failed());
    const QString atTop = BoxesIn(QStringLiteral("top.pdf"));
    EXPECT_TRUE(atTop.contains(QStringLiteral("<word xMin=\"0.0"))) << atTop.toStdString();
    EXPECT_NEAR(TopIn(boxes) - TopIn(atTop), kTop / 20.0, 0.1);
}

TEST_F(PrinterTest, TheFontIsFixedBoldAndInTheFile)
{
    Choose(folder.At("font.pdf"));
    EXPECT_EQ(Document({"iiii", "WWWW"}), 0);
    const QString fonts = Told("pdffonts", {QStringLiteral("font.pdf")});
    EXPECT_TRUE(fonts.contains(QStringLiteral("Bold"))) << fonts.toStdString();
    EXPECT_TRUE(fonts.contains(QStringLiteral("Mono")) || fonts.contains(QStringLiteral("Courier"))) << fonts.toStdString();
    EXPECT_TRUE(fonts.contains(QStringLiteral("yes"))) << fonts.toStdString();
}

TEST_F(PrinterTest, ALineMovesThePlaceDownAndToThePapersEdge)
{
    Choose(folder.At("move.pdf"));
    Begin();
    ASSERT_FALSE(printer.Print("first").Failed());
    EXPECT_EQ(printer.CurrentX(), 0);
    const int height = printer.CurrentY() - kTop;
    EXPECT_NEAR(height, StandinPrinter::kLineHeight, 15);
    ASSERT_FALSE(printer.Print("").Failed());
    EXPECT_EQ(printer.CurrentY(), kTop + 2 * height);
    ASSERT_FALSE(printer.EndDoc().Failed());
    EXPECT_EQ(printer.CurrentX(), 0);
    EXPECT_EQ(printer.CurrentY(), 0);
}

TEST_F(PrinterTest, ZerosAreBlanksAndOtherLettersStayInTheirCells)
{
    Choose(folder.At("cells.pdf"));
    EXPECT_EQ(Document({std::string("a\0\0b|", 5), "Perch\u00E9 \u20AC \u201Cq\u201D|", "\u65E5\u672C|"}), 0);
    const std::vector<std::string> lines = LinesOf(QStringLiteral("cells.pdf"));
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0], "   a  b|");
    EXPECT_EQ(lines[1], "   Perch\u00E9 \u20AC \u201Cq\u201D|");
    // Whatever font the two letters come from: the bar stands behind two cells.
    const QString boxes = BoxesIn(QStringLiteral("cells.pdf"));
    EXPECT_TRUE(boxes.contains(QStringLiteral("xMin=\"35.8")) || boxes.contains(QStringLiteral("xMax=\"42."))) << boxes.toStdString();
}

TEST_F(PrinterTest, TheUserIsAskedOnceADocumentWithTheFilesName)
{
    ListWindow window(14, 1);
    window.Tag.SetPath(folder.At("Bank.01.pcg"));
    program.app.children.Show(window);
    Choose(folder.At("a.pdf"));
    EXPECT_EQ(Document({"one", "two"}), 0);
    ASSERT_EQ(face.dialogs.size(), 1U);
    const FileDialog &dialog = face.dialogs.front();
    EXPECT_EQ(dialog.mode, FileDialog::Mode::Save);
    EXPECT_EQ(dialog.title, "Velluto v 1.1 - Print");
    EXPECT_EQ(dialog.folder, folder.Path());
    EXPECT_EQ(dialog.proposed, "Bank.01.pdf");
    EXPECT_EQ(dialog.filter, "PDF (*.pdf)|*.pdf|");
    EXPECT_EQ(dialog.extension, "pdf");
    const QString info = Told("pdfinfo", {QStringLiteral("a.pdf")});
    EXPECT_TRUE(info.contains(QStringLiteral("Bank.01"))) << info.toStdString();
    EXPECT_TRUE(info.contains(QRegularExpression(QStringLiteral("Pages:\\s+1\n")))) << info.toStdString();
}

TEST_F(PrinterTest, AUserWhoDoesNotSayWhereCancels)
{
    EXPECT_EQ(Document({"one"}), PrinterError::kCancelled);
    Choose("");
    EXPECT_EQ(Document({"one"}), PrinterError::kCancelled);
    EXPECT_EQ(printer.CurrentY(), 0);
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(PrinterTest, AFileThatCannotBeWrittenIsAnErrorAndTheNextDocumentIsFresh)
{
    Choose(folder.At("missing/a.pdf"));
    EXPECT_EQ(Document({"lost"}), PrinterError::kPrinter);
    Choose(folder.Path());
    EXPECT_EQ(Document({"lost"}), PrinterError::kPrinter);
    Choose(folder.At("b.pdf"));
    EXPECT_EQ(Document({"kept"}), 0);
    EXPECT_EQ(LinesOf(QStringLiteral("b.pdf")), std::vector<std::string>{"   kept"});
}

#ifndef _WIN32 // whose folders hold no pipes, and which sets no limit to a file
TEST_F(PrinterTest, WhatIsNoFileIsNeverReplaced)
{
    const std::string pipe = folder.At("pipe.pdf");
    ASSERT_EQ(::mkfifo(pipe.c_str(), S_IRUSR | S_IWUSR), 0);
    Choose(pipe);
    EXPECT_EQ(Document({"lost"}), PrinterError::kPrinter);
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
}

// While it lives no file of this process grows beyond so many bytes, as on a disk that is full.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        (void)std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit now{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        (void)std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit before_{};
};

TEST_F(PrinterTest, AFullDiskLeavesTheOlderFileAsItWas)
{
    const Bytes older{'o', 'l', 'd'};
    WriteBytes(folder.At("a.pdf"), older);
    Choose(folder.At("a.pdf"));
    int error = 0;
    {
        const FullDisk full(1000);
        error = Document({"lost"});
    }
    EXPECT_EQ(error, PrinterError::kPrinter);
    EXPECT_EQ(ReadBytes(folder.At("a.pdf")), older);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}
#endif

TEST_F(PrinterTest, AnOlderFileIsReplacedWhole)
{
    WriteBytes(folder.At("a.pdf"), Bytes(200000, 'x'));
    Choose(folder.At("a.pdf"));
    EXPECT_EQ(Document({"new"}), 0);
    EXPECT_LT(std::filesystem::file_size(folder.At("a.pdf")), 100000U);
    EXPECT_EQ(LinesOf(QStringLiteral("a.pdf")), std::vector<std::string>{"   new"});
}

TEST_F(PrinterTest, ADocumentWithoutLinesAsksNothing)
{
    Begin();
    EXPECT_FALSE(printer.EndDoc().Failed());
    EXPECT_TRUE(face.dialogs.empty());
}

} // namespace

} // namespace velluto::test
