// A face without a screen: message boxes and file dialogs are answered from queues and written down, measures are
// those of the usual fonts at 96 dots an inch. Used by the driver and by tests.
#pragma once

#include "view/Face.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace velluto {

struct ShownBox {
    std::string title;
    std::string text;
    int style = 0;
    int answer = 0;
};

class StandinFace : public Face {
public:
    std::deque<int> answers;             // for the next boxes; a box takes only an answer that it has a button for
    std::deque<FileChoice> choices;      // for the next file dialogs
    std::vector<ShownBox> boxes;         // all boxes shown
    std::vector<FileDialog> dialogs;     // all file dialogs shown
    std::vector<MenuEntry *> popUps;     // all menus popped up
    std::function<void(Form &)> onModal; // acts as the user of a modal form; leaves it closed or the form is closed for him
    Form *frame = nullptr;               // the frame while it is up

    int MessageBox(const std::string &title, const std::string &text, int style) override;
    FileChoice ShowFileDialog(const FileDialog &dialog) override;
    void ShowModal(Form &form) override;
    void CloseModal(Form &form) override { form.Unload(); }
    void PopUpMenu(MenuEntry &menu) override { popUps.push_back(&menu); }
    Size MeasureA(const Font &font) override;
    Size ChildFrame() override;
    Size Workspace() override;
    int LabelWidth(const std::string &text) override;
    void FrameShown(Form &form) override { frame = &form; }
    void FrameClosed(Form & /*form*/) override { frame = nullptr; }
    void ChildShown(Form & /*child*/) override {}
    void ChildClosed(Form & /*child*/) override {}
    void ChildActivated(Form * /*child*/) override {}
};

} // namespace velluto
