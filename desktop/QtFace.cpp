#include "desktop/QtFace.h"

#include "app/Catalogue.h"
#include "app/Language.h"
#include "app/ViewKind.h"
#include "desktop/DropTarget.h"
#include "desktop/Fonts.h"
#include "desktop/Icon.h"
#include "desktop/QtText.h"
#include "desktop/Twips.h"

#include <QApplication>
#include <QFontMetricsF>
#include <QLocale>
#include <QScreen>

#include <algorithm>

namespace velluto {

namespace {

// How dates and sizes are written: as the system does where it speaks the run's language, else as that language's own country does.
QLocale LocaleOf(QLocale::Language language)
{
    if (QLocale::system().language() == language) {
        return QLocale::system();
    }
    return {language, language == QLocale::Italian ? QLocale::Italy : QLocale::UnitedKingdom};
}

bool TakesChanges(const WindowTag &tag)
{
    return tag.Kind() == ViewKind::ProgramFile || tag.Kind() == ViewKind::StyleFile || tag.Kind() == ViewKind::PerformanceFile;
}

// A document that has been changed has a dot on its window's icon.
void MarkChanged(const MainWindow &frame, const ChildWindows &children)
{
    constexpr const char *kMark = "changed";
    for (const Form *form : children.All()) {
        ChildWindow *window = frame.WindowOf(*form);
        const bool changed = TakesChanges(form->Tag) && form->Tag.At(TagPosition::Modified) != 0;
        if (window != nullptr && window->property(kMark).toBool() != changed) {
            window->setProperty(kMark, changed);
            window->setWindowIcon(changed ? ChangedIcon() : ProgramIcon());
        }
    }
}

} // namespace

QtFace::~QtFace()
{
    Detach();
    QCoreApplication::removeTranslator(&italian_);
}

void QtFace::Attach(DrawnProgram program)
{
    program_ = std::make_unique<DrawnProgram>(std::move(program));
    gate_.betweenEvents = [this] {
        if (program_) {
            program_->children.Sweep();
            if (window_) {
                MarkChanged(*window_, program_->children);
            }
        }
    };
    // The program ends when the frame does, not when some dialog before it closes.
    QApplication::setQuitOnLastWindowClosed(false);
}

void QtFace::Detach()
{
    window_.reset();
    program_.reset();
}

// The language is known once the settings have been read.
void QtFace::TakeLanguage()
{
    const bool wanted = program_ && program_->linguaBase == kItalianBase;
    const QLocale locale = LocaleOf(wanted ? QLocale::Italian : QLocale::English);
    if (QLocale() != locale) {
        QLocale::setDefault(locale);
    }
    if (wanted != italianInstalled_) {
        italianInstalled_ = wanted;
        if (wanted) {
            QCoreApplication::installTranslator(&italian_);
        } else {
            QCoreApplication::removeTranslator(&italian_);
        }
    }
}

QWidget *QtFace::DialogParent() const
{
    QWidget *modal = QApplication::activeModalWidget();
    if (modal != nullptr) {
        return modal;
    }
    return window_ && window_->isVisible() ? window_.get() : nullptr;
}

int QtFace::MessageBox(const std::string &title, const std::string &text, int style)
{
    TakeLanguage();
    const EventGate::Pass pass(gate_);
    return ShowBox(DialogParent(), title, text, style);
}

FileChoice QtFace::ShowFileDialog(const FileDialog &dialog)
{
    TakeLanguage();
    const EventGate::Pass pass(gate_);
    const int base = program_ ? program_->linguaBase : kItalianBase;
    return ChooseFile(DialogParent(), dialog, FromUtf8(LoadResString(TextId::PathNotFound + base)));
}

void QtFace::ShowModal(Form &form)
{
    const EventGate::Pass pass(gate_);
    // The title and borders that the form's size reckons with; the window manager's own may differ, and are outside.
    form.frame = ChildFrame();
    form.Load();
    FormDialog dialog(form, gate_, DialogParent());
    dialogs_.push_back(&dialog);
    dialog.exec();
    std::erase(dialogs_, &dialog);
    form.Unload();
}

void QtFace::CloseModal(Form &form)
{
    form.Unload();
    const auto found = std::ranges::find_if(dialogs_, [&form](const FormDialog *dialog) { return dialog->form() == &form; });
    if (found != dialogs_.end()) {
        (*found)->Finish();
    }
}

void QtFace::PopUpMenu(MenuEntry &menu)
{
    if (window_) {
        window_->PopUpMenu(menu);
    }
}

Size QtFace::MeasureA(const Font &font)
{
    const QFont drawn = ToQFont(font);
    return {ToTwips(CellWidth(drawn)), ToTwips(RowHeight(drawn))};
}

Size QtFace::ChildFrame()
{
    const QSize frame = ChildWindow::FrameSize();
    return {ToTwips(frame.width()), ToTwips(frame.height())};
}

Size QtFace::Workspace()
{
    const QSize room = window_ ? window_->Area().maximumViewportSize() : QGuiApplication::primaryScreen()->availableSize();
    return {ToTwips(room.width()), ToTwips(room.height())};
}

int QtFace::LabelWidth(const std::string &text)
{
    return ToTwipsRoundedUp(QFontMetricsF(QApplication::font()).horizontalAdvance(FromUtf8(text)));
}

void QtFace::FrameShown(Form & /*frame*/)
{
    TakeLanguage();
    if (program_ && !window_) {
        window_ = std::make_unique<MainWindow>(program_->frame, program_->children, gate_, program_->closeFrame);
        new DropTarget(*window_, gate_, program_->openFile); // the window owns it
        const EventGate::Pass pass(gate_);
        window_->ShowFrame();
    }
}

void QtFace::FrameClosed(Form & /*frame*/)
{
    if (window_) {
        // The window itself goes in Detach: one of its own events is most likely under way.
        window_->hide();
    }
    QCoreApplication::exit(0);
}

void QtFace::ChildShown(Form &child)
{
    if (window_) {
        window_->ShowChild(child);
    }
}

void QtFace::ChildClosed(Form &child)
{
    if (window_) {
        window_->CloseChild(child);
    }
}

void QtFace::ChildActivated(Form *child)
{
    if (window_) {
        window_->ActivateChild(child);
    }
}

} // namespace velluto
