#include "app/Modulo1.h"

namespace velluto {

Modulo1::Modulo1(Ports machine, Face &drawnBy) : ports(machine), face(drawnBy), messages{drawnBy}, children(drawnBy) {}

void RefreshWindowMenu(Modulo1 &app)
{
    if (app.children.ClosingAll) {
        return;
    }
    frmMain &menu = app.frame;
    menu.mnuStampa.enabled = false;
    const bool open = app.children.ChildCount != 0;
    // mnuModifica is only switched on here; RefreshAfterClose switches it off.
    if (open) {
        menu.mnuModifica.enabled = true;
    }
    menu.mnuWindow.enabled = open;
    menu.mnuChiudi.enabled = open;
}

void RefreshAfterClose(Modulo1 &app)
{
    frmMain &menu = app.frame;
    const bool open = app.children.ChildCount != 0;
    menu.mnuModifica.enabled = open;
    if (!open) {
        menu.mnuWindow.enabled = false;
    }
}

void PopUpEditMenu(Modulo1 &app, int button)
{
    if (button == MouseButton::Right && DropMenu(app.frame.mnuModifica)) {
        app.face.PopUpMenu(app.frame.mnuModifica);
    }
}

int ClassifyIoError(const Messages &messages, std::string_view title, RuntimeError error)
{
    constexpr int kGiveUp = 1;
    constexpr int kRepeat = 2;
    int number = MessageNo::DiskReadError;
    switch (error.number) {
    case FileError::kDeviceError: // systems report 57, which falls under the disk reading error on purpose
        number = MessageNo::DeviceError;
        break;
    case FileError::kDiskNotReady:
        number = MessageNo::DiskNotReady;
        break;
    case FileError::kPathFileAccess:
        number = MessageNo::ReadOnlyFile;
        break;
    case FileError::kPathNotFound:
        number = MessageNo::PathNotFound;
        break;
    default:
        break;
    }
    messages.ShowMessage(number, title, {});
    return error.number == FileError::kDiskNotReady ? kRepeat : kGiveUp;
}

} // namespace velluto
