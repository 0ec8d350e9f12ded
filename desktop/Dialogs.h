// The modal windows: message boxes, the file dialog, and forms that are shown as dialogs.
#pragma once

#include "desktop/EventGate.h"
#include "desktop/FormSurface.h"
#include "view/Face.h"

#include <QDialog>

namespace velluto {

// The button pressed, as Box numbers them. style is Box::kNotice or Box::kYesNoCancel.
[[nodiscard]] int ShowBox(QWidget *parent, const std::string &title, const std::string &text, int style);

// pathNotFound is said where the folder of a file to be saved does not exist.
[[nodiscard]] FileChoice ChooseFile(QWidget *parent, const FileDialog &dialog, const QString &pathNotFound);

// The filters of a "Name|pattern|..." list in Qt's form, in their order.
[[nodiscard]] QStringList NameFilters(const std::string &filter);

// Whether it is a place where systems put media that have been plugged in: the file dialog names them in its side bar.
[[nodiscard]] bool IsMediumPlace(const QString &root);

// A form in a window of its own that nothing else is reached behind. The form has been loaded; who closes the window
// unloads it.
class FormDialog : public QDialog {
public:
    FormDialog(Form &form, EventGate &gate, QWidget *parent);
    ~FormDialog() override;
    [[nodiscard]] const Form *form() const { return form_; }
    // The form has been unloaded by its own hand.
    void Finish();

protected:
    void closeEvent(QCloseEvent *event) override;
    void reject() override;

private:
    // False where the form refuses.
    bool UnloadForm();

    Form *form_;
    EventGate &gate_;
    FormSurface *surface_;
};

} // namespace velluto
