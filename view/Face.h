// What the program asks of the one who draws it: modal boxes, file dialogs, pop-ups, text measures, and to follow the
// child windows. The desktop answers with Qt, the driver and the tests with queues.
#pragma once

#include "view/MenuEntry.h"

#include <string>
#include <vector>

namespace velluto {

// The numbers of box styles and buttons.
namespace Box {
inline constexpr int kNotice = 48;      // OK, exclamation icon
inline constexpr int kYesNoCancel = 51; // Yes, No, Cancel, exclamation icon
inline constexpr int kOk = 1;
inline constexpr int kCancel = 2;
inline constexpr int kYes = 6;
inline constexpr int kNo = 7;
} // namespace Box

struct FileDialog {
    enum class Mode { Open, Save };
    Mode mode = Mode::Open;
    std::string title;
    std::string folder;    // start folder
    std::string filter;    // "Name|pattern|Name|pattern|"
    int filterIndex = 1;   // 1-based
    std::string proposed;  // file name offered
    std::string extension; // default extension, without a dot
};

struct FileChoice {
    bool cancelled = true;
    std::string path;    // full path; may be empty
    int filterIndex = 1; // the filter in use when the dialog closed, 1-based
};

class Face {
public:
    virtual ~Face() = default;

    virtual int MessageBox(const std::string &title, const std::string &text, int style) = 0; // the button pressed
    virtual FileChoice ShowFileDialog(const FileDialog &dialog) = 0;
    virtual void ShowModal(Form &form) = 0; // returns when the form has been closed (Form_Unload has run)
    virtual void CloseModal(Form &form) = 0;
    virtual void PopUpMenu(MenuEntry &menu) = 0; // its state has been computed

    virtual Size MeasureA(const Font &font) = 0;         // width and row height of "A", twips
    virtual Size ChildFrame() = 0;                       // what a child window's frame adds to its inner size, twips
    virtual Size Workspace() = 0;                        // the inside of the frame where children live, twips
    virtual int LabelWidth(const std::string &text) = 0; // width of a text in the status bar's font, twips

    // Following the windows. A form is told shown before it is activated, and closed before it is destroyed.
    virtual void FrameShown(Form &frame) = 0;
    virtual void FrameClosed(Form &frame) = 0;
    virtual void ChildShown(Form &child) = 0;
    virtual void ChildClosed(Form &child) = 0;
    virtual void ChildActivated(Form *child) = 0; // nullptr: no child is left
};

} // namespace velluto
