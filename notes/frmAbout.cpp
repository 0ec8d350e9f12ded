#include "notes/frmAbout.h"

#include "app/Catalogue.h"

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

frmAbout::frmAbout(NotesState &notes) : NotesWindow("frmAbout", notes, PlacementEntry::About, notes.app.frame.mnuInfo)
{
    picVelluto.accessibleName = kProgramName;
    cmdOK.caption = "OK";
    cmdOK.answersReturn = true;
    cmdOK.answersEscape = true;
    cmdOK.Click = [this] { app.children.Unload(*this); };
}

// Nobody follows this window's size: the mark of a load under way stays as it is.
void frmAbout::Form_Load()
{
    LoadWindow();
    CountIn();
}

bool frmAbout::LoadWindow()
{
    entry_.State = StoredState::Normal;
    const Messages &messages = app.messages;
    caption = std::string(kProgramTitle) + " - " + messages.Text(TextId::InfoAbout) + std::string(kProgramName);
    const std::string title = messages.Text(TextId::ProgramTitleLine);
    const std::string version = messages.Text(TextId::Version);
    lblTitolo.caption = title + "\r\n" + version;

    const int textWidth = std::max(app.face.LabelWidth(title), app.face.LabelWidth(version)) + kTextSlack;
    const int textLeft = 2 * kMargin + kPictureSide;
    const int width = textLeft + textWidth + kMargin;
    picVelluto.place = Place{kMargin, kMargin, kPictureSide, kPictureSide};
    lblTitolo.place = Place{textLeft, kMargin + (kPictureSide - kTextHeight) / 2, textWidth, kTextHeight};
    cmdOK.place = Place{width - kMargin - kButtonWidth, 2 * kMargin + kPictureSide - kButtonHeight / 2, kButtonWidth, kButtonHeight};
    // Always in the middle of the frame, wherever it stood last.
    const Size outside{width + frame.width, cmdOK.place.Get().top + kButtonHeight + kMargin + frame.height};
    const Size room = app.face.Workspace();
    place = Place{std::max((room.width - outside.width) / 2, 0), std::max((room.height - outside.height) / 2, 0), outside.width,
                  outside.height};
    Tag = ToolTag(ViewKind::About);
    return true;
}

void mnuInfo_Click(NotesState &notes)
{
    ShowChild<frmAbout>(notes.about, notes);
}

} // namespace velluto
