// The program's face on a desktop: draws the frame, the children and the dialogs with Qt. One for each run.
#pragma once

#include "desktop/Dialogs.h"
#include "desktop/EventGate.h"
#include "desktop/ItalianTexts.h"
#include "desktop/MainWindow.h"
#include "desktop/PostedCalls.h"
#include "view/Face.h"

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace velluto {

// What the face needs of the program that it draws.
struct DrawnProgram {
    frmMain &frame;
    ChildWindows &children;
    const int &linguaBase;                                 // of the run
    std::function<bool()> closeFrame;                      // the user closes the frame; false where a child refused
    std::function<void(const std::string &path)> openFile; // the user drops a file on the frame
};

class QtFace : public Face {
public:
    QtFace() = default;
    ~QtFace() override;
    QtFace(const QtFace &) = delete;
    QtFace &operator=(const QtFace &) = delete;

    // Before the program starts; Detach before it goes.
    void Attach(DrawnProgram program);
    void Detach();
    [[nodiscard]] MainWindow *Window() const { return window_.get(); }
    [[nodiscard]] EventGate &Gate() { return gate_; }
    // Runs the call later from the event loop, as an event of the program. Any thread may ask; calls keep their order, and
    // what is still waiting when the face goes is dropped.
    void Post(std::function<void()> call) { posted_.Post(std::move(call)); }

    int MessageBox(const std::string &title, const std::string &text, int style) override;
    FileChoice ShowFileDialog(const FileDialog &dialog) override;
    void ShowModal(Form &form) override;
    void CloseModal(Form &form) override;
    void PopUpMenu(MenuEntry &menu) override;
    Size MeasureA(const Font &font) override;
    Size ChildFrame() override;
    Size Workspace() override;
    int LabelWidth(const std::string &text) override;
    void FrameShown(Form &frame) override;
    void FrameClosed(Form &frame) override;
    void ChildShown(Form &child) override;
    void ChildClosed(Form &child) override;
    void ChildActivated(Form *child) override;

private:
    [[nodiscard]] QWidget *DialogParent() const;
    void TakeLanguage();

    EventGate gate_;
    PostedCalls posted_{gate_};
    std::unique_ptr<DrawnProgram> program_;
    std::unique_ptr<MainWindow> window_;
    std::vector<FormDialog *> dialogs_; // the modal forms under way
    ItalianTexts italian_;
    bool italianInstalled_ = false;
};

} // namespace velluto
