#include "desktop/Dialogs.h"

#include "desktop/QtText.h"
#include "desktop/Twips.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QTreeView>

#include <algorithm>

namespace velluto {

namespace {

// Logical pixels.
constexpr QSize kFileDialogSize(760, 480);
constexpr int kNameColumn = 300;
constexpr int kSizeColumn = 90;

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

// A save asks for a folder that exists; all else is left to the program.
class SaveDialog : public QFileDialog {
public:
    SaveDialog(QWidget *parent, QString pathNotFound) : QFileDialog(parent), pathNotFound_(std::move(pathNotFound)) {}

protected:
    void accept() override
    {
        const QStringList files = selectedFiles();
        if (acceptMode() == AcceptSave && !files.isEmpty() && !QFileInfo(files.first()).dir().exists()) {
            QMessageBox::warning(this, windowTitle(), pathNotFound_);
            return;
        }
        QFileDialog::accept();
    }

private:
    QString pathNotFound_;
};

// Names need most of the width, and the type of every file is unknown to Qt.
void LayOutFileList(const QFileDialog &chooser)
{
    constexpr int kTypeColumn = 2;
    if (auto *list = chooser.findChild<QTreeView *>(QStringLiteral("treeView"))) {
        list->hideColumn(kTypeColumn);
        list->header()->resizeSection(0, kNameColumn);
        list->header()->resizeSection(1, kSizeColumn);
        list->header()->setStretchLastSection(true);
    }
}

} // namespace

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
    SaveDialog chooser(parent, pathNotFound);
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
    if (!dialog.proposed.empty()) {
        chooser.selectFile(FromUtf8(dialog.proposed));
    }
    chooser.resize(kFileDialogSize);
    LayOutFileList(chooser);
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
