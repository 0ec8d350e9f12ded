#include "notes/frmAbout.h"

#include "app/Catalogue.h"
#include "notes/NotesWindow.h"

#include <algorithm>

namespace velluto {

namespace {

// Twips.
constexpr int kMargin = 300;
constexpr int kPictureSide = 1440;
constexpr int kTextHeight = 480;
constexpr int kTextSlack = 150; // for letters that lean out of their measure
constexpr int kButtonWidth = 1320;
constexpr int kButtonHeight = 405;

} // namespace

frmAbout::frmAbout(NotesState &notes) : Form("frmAbout"), notes_(notes), app_(notes.app)
{
    picVelluto.accessibleName = kProgramName;
    cmdOK.caption = "OK";
    cmdOK.answersReturn = true;
    cmdOK.answersEscape = true;
    cmdOK.Click = [this] { app_.children.Unload(*this); };
}

void frmAbout::Form_Load()
{
    app_.settings.PlacementTable.at(PlacementEntry::About).State = StoredState::Normal;
    app_.frame.mnuInfo.enabled = false;
    const Messages &messages = app_.messages;
    caption = std::string(kProgramTitle) + " - " + messages.Text(TextId::InfoAbout) + std::string(kProgramName);
    const std::string title = messages.Text(TextId::ProgramTitleLine);
    const std::string version = messages.Text(TextId::Version);
    lblTitolo.caption = title + "\r\n" + version;

    const int textWidth = std::max(app_.face.LabelWidth(title), app_.face.LabelWidth(version)) + kTextSlack;
    const int textLeft = 2 * kMargin + kPictureSide;
    const int width = textLeft + textWidth + kMargin;
    picVelluto.place = Place{kMargin, kMargin, kPictureSide, kPictureSide};
    lblTitolo.place = Place{textLeft, kMargin + (kPictureSide - kTextHeight) / 2, textWidth, kTextHeight};
    cmdOK.place = Place{width - kMargin - kButtonWidth, 2 * kMargin + kPictureSide - kButtonHeight / 2, kButtonWidth, kButtonHeight};
    // Always in the middle of the frame, wherever it stood last.
    const Size outside{width + frame.width, cmdOK.place.Get().top + kButtonHeight + kMargin + frame.height};
    const Size room = app_.face.Workspace();
    place = Place{std::max((room.width - outside.width) / 2, 0), std::max((room.height - outside.height) / 2, 0), outside.width,
                  outside.height};
    Tag = ToolTag(ViewKind::About);
    ++app_.children.ChildCount;
}

void frmAbout::Form_Unload()
{
    LeaveFrame(app_, app_.settings.PlacementTable.at(PlacementEntry::About), *this, app_.frame.mnuInfo);
    app_.children.Bury(std::move(notes_.about));
}

void frmAbout::Form_Activate()
{
    RefreshWindowMenu(app_);
}

void mnuInfo_Click(NotesState &notes)
{
    if (notes.about == nullptr) {
        notes.about = std::make_unique<frmAbout>(notes);
    }
    notes.app.children.Show(*notes.about);
}

} // namespace velluto
