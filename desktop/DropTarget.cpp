#include "desktop/DropTarget.h"

#include "desktop/QtText.h"
#include "program/NamedFiles.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <vector>

namespace velluto {

namespace {

std::vector<std::string> FilesForUs(const QMimeData &dropped)
{
    std::vector<std::string> paths;
    for (const QUrl &url : dropped.urls()) {
        const QFileInfo file(url.toLocalFile());
        const std::string path = ToUtf8(QDir::toNativeSeparators(file.absoluteFilePath()));
        if (url.isLocalFile() && IsFileForUs(path) && file.isFile()) {
            paths.push_back(path);
        }
    }
    return paths;
}

bool IsDrag(QEvent::Type type)
{
    return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
}

} // namespace

DropTarget::DropTarget(QWidget &window, EventGate &gate, std::function<void(const std::string &path)> open)
    : QObject(&window), gate_(gate), open_(std::move(open))
{
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool DropTarget::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (!IsDrag(event->type())) {
        return false;
    }
    auto &drop = static_cast<QDropEvent &>(*event);
    // A question that waits for its answer comes first.
    const bool waits = gate_.Busy() || QApplication::activeModalWidget() != nullptr;
    if (waits || drop.mimeData() == nullptr || FilesForUs(*drop.mimeData()).empty()) {
        event->ignore();
        return true;
    }
    drop.setDropAction(Qt::CopyAction); // never one that takes the files from where they are
    drop.accept();
    if (event->type() == QEvent::Drop) {
        Open(drop);
    }
    return true;
}

void DropTarget::Open(const QDropEvent &event)
{
    QMetaObject::invokeMethod(
        this,
        [this, paths = FilesForUs(*event.mimeData())] {
            const EventGate::Pass pass(gate_);
            for (const std::string &path : paths) {
                open_(path);
            }
        },
        Qt::QueuedConnection);
}

bool BringsFiles(const QEvent &event)
{
    if (!IsDrag(event.type())) {
        return false;
    }
    const QMimeData *brought = static_cast<const QDropEvent &>(event).mimeData();
    return brought != nullptr && brought->hasUrls();
}

} // namespace velluto
