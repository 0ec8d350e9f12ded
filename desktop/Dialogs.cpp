#include "desktop/Dialogs.h"

#include "desktop/QtText.h"
#include "desktop/Twips.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QScreen>
#include <QSpacerItem>
#include <QStorageInfo>
#include <QStyledItemDelegate>
#include <QTreeView>
#include <QUrl>

#include <algorithm>
#include <array>

namespace velluto {

namespace {

// Logical pixels.
constexpr QSize kFileDialogSize(760, 480);
constexpr int kNameColumn = 300;
constexpr int kSizeColumn = 90;

// A box is as wide as its title, which may be the only place that names a file. The window manager draws the title, in a font of
// its own: bold is as wide as they come, and beside the words there are its buttons.
void MakeRoomForTitle(QMessageBox &box)
{
    constexpr int kTitleButtons = 130;
    QFont font = QApplication::font("QMdiSubWindowTitleBar");
    font.setBold(true);
    const int most = box.screen()->availableSize().width() - kTitleButtons;
    const int words = QFontMetrics(font).horizontalAdvance(box.windowTitle()) + kTitleButtons;
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout())) {
        const QMargins margins = grid->contentsMargins();
        grid->addItem(new QSpacerItem(std::min(words, most) - margins.left() - margins.right(), 0), grid->rowCount(), 0, 1,
                      grid->columnCount());
    }
}

int ButtonNumber(int button)
{
    switch (button) {
    case QMessageBox::Ok:
        return Box::kOk;
    case QMessageBox::Yes:
        return Box::kYes;
    case QMessageBox::No:
        return Box::kNo;
    default:
        return Box::kCancel;
    }
}

// A save asks for a folder that exists; all else is left to the program. A folder that is named is gone into, and its name gives way
// to the one that was proposed: Qt would leave it there for the next name to be typed behind, and in a save make it "folder/.pcg".
class FileChooser : public QFileDialog {
public:
    FileChooser(QWidget *parent, QString proposed, QString pathNotFound)
        : QFileDialog(parent), proposed_(std::move(proposed)), pathNotFound_(std::move(pathNotFound))
    {
    }

protected:
    void accept() override
    {
        auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit")); // none in the system's own dialog, which does it so
        if (name != nullptr && !name->text().isEmpty()) {
            if (const QFileInfo named(directory(), name->text()); named.isDir()) {
                setDirectory(named.absoluteFilePath());
                name->setText(QFileInfo(proposed_).fileName());
                return;
            }
        }
        const QStringList files = selectedFiles();
        if (acceptMode() == AcceptSave && !files.isEmpty() && !QFileInfo(files.first()).dir().exists()) {
            QMessageBox::warning(this, windowTitle(), pathNotFound_);
            return;
        }
        QFileDialog::accept();
    }

private:
    QString proposed_;
    QString pathNotFound_;
};

// The day of a file's last change, told in the run's language: Qt tells it in the system's.
class DayDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const QFileInfo file(index.siblingAtColumn(0).data(QFileSystemModel::FilePathRole).toString());
        option->text = QLocale().toString(file.lastModified(), QLocale::ShortFormat);
    }
};

// Names need most of the width, and the type of every file is unknown to Qt.
void LayOutFileList(QTreeView &list)
{
    constexpr int kTypeColumn = 2;
    constexpr int kDayColumn = 3;
    list.hideColumn(kTypeColumn);
    list.header()->resizeSection(0, kNameColumn);
    list.header()->resizeSection(1, kSizeColumn);
    list.header()->setStretchLastSection(true);
    list.setItemDelegateForColumn(kDayColumn, new DayDelegate(&list));
}

// Where an owner's files are: the home folder, the samples beside the program, and what has been plugged in. Qt remembers all of them
// for the next time, for all programs: those that are gone by then are left out, but for what can be plugged in again.
QList<QUrl> SidePlaces(const QFileDialog &chooser)
{
    QList<QUrl> places = chooser.sidebarUrls();
    places.removeIf([](const QUrl &place) {
        const QString path = place.toLocalFile();
        return !path.isEmpty() && !IsMediumPlace(path) && !QFileInfo::exists(path);
    });
    QStringList folders{QDir::homePath()};
    if (QDir::current().exists(QStringLiteral("samples"))) {
        folders << QDir::current().filePath(QStringLiteral("samples"));
    }
    for (const QStorageInfo &volume : QStorageInfo::mountedVolumes()) {
        if (volume.isReady() && IsMediumPlace(volume.rootPath())) {
            folders << volume.rootPath();
        }
    }
    for (const QString &folder : folders) {
        const QUrl place = QUrl::fromLocalFile(folder);
        if (!places.contains(place)) {
            places << place;
        }
    }
    return places;
}

} // namespace

bool IsMediumPlace(const QString &root)
{
    return std::ranges::any_of(std::array{QLatin1String("/media"), QLatin1String("/run/media"), QLatin1String("/mnt")},
                               [&root](QLatin1String place) { return root == place || root.startsWith(place + QLatin1Char('/')); });
}

int ShowBox(QWidget *parent, const std::string &title, const std::string &text, int style)
{
    QMessageBox box(parent);
    box.setIcon(QMessageBox::Warning);
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(AsTitle(title));
    box.setText(ToEditorText(text));
    if (style == Box::kYesNoCancel) {
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Yes);
        box.setEscapeButton(QMessageBox::Cancel);
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    MakeRoomForTitle(box);
    const int pressed = ButtonNumber(box.exec());
    return style == Box::kYesNoCancel ? pressed : Box::kOk;
}

QStringList NameFilters(const std::string &filter)
{
    const QStringList parts = FromUtf8(filter).split(QLatin1Char('|'));
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // "*.*" means every file, with a dot in its name or without.
        const QString pattern = parts[i + 1] == QLatin1String("*.*") ? QStringLiteral("*") : parts[i + 1];
        const QString name = parts[i].section(QLatin1Char('('), 0, 0).trimmed();
        filters.append(name + QLatin1String(" (") + pattern + QLatin1Char(')'));
    }
    return filters;
}

FileChoice ChooseFile(QWidget *parent, const FileDialog &dialog, const QString &pathNotFound)
{
    const QString proposed = FromUtf8(dialog.proposed);
    FileChooser chooser(parent, proposed, pathNotFound);
    const bool saves = dialog.mode == FileDialog::Mode::Save;
    // A file that does not exist can be named in both: what to say about it is the program's business.
    chooser.setFileMode(QFileDialog::AnyFile);
    chooser.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    chooser.setWindowTitle(AsTitle(dialog.title));
    const QStringList filters = NameFilters(dialog.filter);
    chooser.setNameFilters(filters);
    if (dialog.filterIndex >= 1 && dialog.filterIndex <= filters.size()) {
        chooser.selectNameFilter(filters[dialog.filterIndex - 1]);
    }
    const QString folder = FromUtf8(dialog.folder);
    if (!folder.isEmpty() && QDir(folder).exists()) {
        chooser.setDirectory(folder);
    }
    chooser.setDefaultSuffix(FromUtf8(dialog.extension));
    if (!proposed.isEmpty()) {
        chooser.selectFile(proposed);
    }
    // The system's own dialog has no such list, and shows places of its own: to ask for all volumes may take long, where one is far away.
    if (auto *list = chooser.findChild<QTreeView *>(QStringLiteral("treeView"))) {
        chooser.setSidebarUrls(SidePlaces(chooser));
        LayOutFileList(*list);
    }
    chooser.resize(kFileDialogSize);
    const bool accepted = chooser.exec() == QDialog::Accepted;
    // A window manager that sees the dialog go together with a question above it may forget who had the keyboard before them.
    if (parent != nullptr) {
        parent->activateWindow();
    }
    if (!accepted) {
        return {};
    }
    const QStringList chosen = chooser.selectedFiles();
    const qsizetype index = filters.indexOf(chooser.selectedNameFilter());
    return {false, chosen.isEmpty() ? std::string() : ToUtf8(QDir::toNativeSeparators(chosen.first())),
            static_cast<int>(std::max<qsizetype>(index, 0)) + 1};
}

FormDialog::FormDialog(Form &form, EventGate &gate, QWidget *parent)
    : QDialog(parent), form_(&form), gate_(gate), surface_(new FormSurface(form, gate, this))
{
    setObjectName(FromUtf8(form.FullName()));
    setWindowTitle(AsTitle(form.caption.Get()));
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    setFixedSize(ToPixels(Size{form.ScaleWidth(), form.ScaleHeight()}));
    surface_->setGeometry(rect());
    form.observer = [this](Aspect aspect) {
        if (aspect == Aspect::Caption) {
            setWindowTitle(AsTitle(form_->caption.Get()));
        }
    };
}

FormDialog::~FormDialog()
{
    Finish();
}

void FormDialog::Finish()
{
    if (form_ != nullptr) {
        form_->observer = nullptr;
        form_ = nullptr;
        surface_->Detach();
        done(Accepted);
    }
}

bool FormDialog::UnloadForm()
{
    if (form_ == nullptr) {
        return true;
    }
    const EventGate::Pass pass(gate_);
    if (!form_->Form_QueryUnload()) {
        return false;
    }
    form_->Unload();
    Finish();
    return true;
}

void FormDialog::closeEvent(QCloseEvent *event)
{
    event->setAccepted(UnloadForm());
}

void FormDialog::reject()
{
    UnloadForm();
}

} // namespace velluto
