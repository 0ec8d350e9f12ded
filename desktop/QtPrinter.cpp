#include "desktop/QtPrinter.h"

#include "app/Catalogue.h"
#include "desktop/QtText.h"

#include <QBuffer>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include <algorithm>
#include <cmath>

namespace velluto {

namespace {

constexpr int kPdfResolution = 1200; // dots an inch
constexpr double kTwentiethsPerInch = 1440.0;
constexpr double kSameWidth = 0.01; // of a cell: what rounding may make of a character's width

// A zero byte is a blank on paper; other control codes show that something is there.
QString Drawn(std::string_view line)
{
    QString text = FromUtf8(line);
    for (QChar &character : text) {
        if (character.isNull()) {
            character = QLatin1Char(' ');
        } else if (character.category() == QChar::Other_Control) {
            character = QChar(QChar::ReplacementCharacter);
        }
    }
    return text;
}

// Draws the text with each character in a cell of its own. Characters that the font has not come from another one, of
// other widths; they are put into their cells one by one.
void DrawInCells(QPainter &painter, QPointF at, double cell, const QString &text)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const auto characters = text.toUcs4();
    if (std::abs(metrics.horizontalAdvance(text) - cell * static_cast<double>(characters.size())) < cell * kSameWidth) {
        painter.drawText(at, text);
        return;
    }
    for (const char32_t character : characters) {
        painter.drawText(at, QString::fromUcs4(&character, 1));
        at.rx() += cell;
    }
}

} // namespace

// A document under way, on the printer or in the memory that a PDF file is written from.
class QtPrinter::Document {
public:
    // On the default printer.
    explicit Document(const QPrinterInfo &info) : printer_(std::make_unique<QPrinter>(info, QPrinter::HighResolution))
    {
        printer_->setFullPage(true);
        printer_->setPageMargins(QMarginsF()); // which Windows adds to places on the page even so
        device_ = printer_.get();
    }
    // In a PDF file, which is written when the document ends.
    explicit Document(QString path) : path_(std::move(path))
    {
        memory_.open(QIODevice::WriteOnly);
        pdf_ = std::make_unique<QPdfWriter>(&memory_);
        pdf_->setResolution(kPdfResolution);
        pdf_->setPageMargins(QMarginsF());
        device_ = pdf_.get();
    }

    void Name(const QString &name)
    {
        if (printer_) {
            printer_->setDocName(name);
        } else {
            pdf_->setTitle(name);
        }
    }
    bool Begin() { return painter_.begin(device_); }
    // Answers the height of a line, in twentieths of a point.
    int Draw(const QFont &font, int x, int y, const QString &text)
    {
        painter_.setFont(font);
        const QFontMetricsF metrics(font, device_);
        const double cell = metrics.horizontalAdvance(QLatin1Char('A'));
        DrawInCells(painter_, {x * Scale(), y * Scale() + metrics.ascent()}, cell, text);
        return static_cast<int>(std::lround(metrics.lineSpacing() / Scale()));
    }
    bool End()
    {
        const bool ended = painter_.end();
        if (printer_) {
            return ended && printer_->printerState() != QPrinter::Error;
        }
        return ended && Write();
    }
    void Drop()
    {
        if (printer_) {
            printer_->abort();
        }
    }

private:
    // Device dots in a twentieth of a point.
    [[nodiscard]] double Scale() const { return device_->logicalDpiX() / kTwentiethsPerInch; }
    // A file that cannot be written whole is left as it was. What is there and is no file is never put aside for one.
    bool Write()
    {
        const QFileInfo there(path_);
        if (there.exists() && !there.isFile()) {
            return false;
        }
        QSaveFile file(path_);
        file.setDirectWriteFallback(true);
        // Without the flush, commit() would not notice bytes that found no room.
        return file.open(QIODevice::WriteOnly) && file.write(memory_.data()) == memory_.size() && file.flush() && file.commit();
    }

    QString path_;
    QBuffer memory_;
    std::unique_ptr<QPrinter> printer_;
    std::unique_ptr<QPdfWriter> pdf_;
    QPagedPaintDevice *device_ = nullptr;
    QPainter painter_; // the last member: it lets go of the device before the device goes
};

QtPrinter::QtPrinter(Face &face) : face_(face)
{
    font_.setStyleHint(QFont::TypeWriter);
}

QtPrinter::~QtPrinter() = default;

// The file in the active window, and the program's own name where there is none.
QtPrinter::Listed QtPrinter::ListedFile() const
{
    const Form *window = app_ != nullptr ? app_->children.Active() : nullptr;
    const std::string path = window != nullptr ? window->Tag.Path() : std::string();
    const std::string file = FileNameOf(path);
    const std::string name = file.substr(0, file.rfind('.'));
    return {FolderOf(path), name.empty() ? std::string(kProgramName) : name};
}

void QtPrinter::Reset()
{
    document_.reset();
    x_ = 0;
    y_ = 0;
}

RuntimeError QtPrinter::Fail(int number)
{
    if (document_) {
        document_->Drop();
    }
    Reset();
    return {number};
}

RuntimeError QtPrinter::FontName(std::string_view name)
{
    font_.setFamily(FromUtf8(name));
    return {};
}

RuntimeError QtPrinter::FontSize(int points)
{
    font_.setPointSize(std::max(points, 1));
    return {};
}

RuntimeError QtPrinter::FontBold(bool bold)
{
    font_.setBold(bold);
    return {};
}

RuntimeError QtPrinter::CurrentX(int place)
{
    x_ = place;
    return {};
}

RuntimeError QtPrinter::CurrentY(int place)
{
    y_ = place;
    return {};
}

// The user says where; a file beside the listed one, with its name, is offered.
RuntimeError QtPrinter::BeginPdf(const Listed &listed)
{
    FileDialog dialog;
    dialog.mode = FileDialog::Mode::Save;
    dialog.title = kProgramTitle;
    if (app_ != nullptr) {
        dialog.title += " - " + app_->messages.Text(TextId::Print);
    }
    dialog.folder = listed.folder;
    dialog.filter = "PDF (*.pdf)|*.pdf|";
    dialog.proposed = listed.name + ".pdf";
    dialog.extension = "pdf";
    const FileChoice choice = face_.ShowFileDialog(dialog);
    if (choice.cancelled || choice.path.empty()) {
        return {PrinterError::kCancelled};
    }
    document_ = std::make_unique<Document>(FromUtf8(choice.path));
    return {};
}

RuntimeError QtPrinter::Begin()
{
    const Listed listed = ListedFile();
    const QPrinterInfo printer = QPrinterInfo::defaultPrinter();
    if (printer.isNull()) {
        const RuntimeError error = BeginPdf(listed);
        if (error.Failed()) {
            return error;
        }
    } else {
        document_ = std::make_unique<Document>(printer);
    }
    document_->Name(FromUtf8(listed.name));
    return {document_->Begin() ? 0 : PrinterError::kPrinter};
}

RuntimeError QtPrinter::Print(std::string_view line)
{
    if (!document_) {
        const RuntimeError error = Begin();
        if (error.Failed()) {
            return Fail(error.number);
        }
    }
    y_ += document_->Draw(font_, x_, y_, Drawn(line));
    x_ = 0;
    return {};
}

RuntimeError QtPrinter::EndDoc()
{
    if (document_ && !document_->End()) {
        return Fail(PrinterError::kPrinter);
    }
    Reset();
    return {};
}

} // namespace velluto
