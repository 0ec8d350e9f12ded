#include "notes/frmGuida.h"

#include "app/Catalogue.h"
#include "app/Characters.h"
#include "files/ErrorTrap.h"
#include "notes/GuideText.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr Font kGuideFont{"courier new", 10, 400};

// Twips.
constexpr int kWidth = 9600;
constexpr int kBelow = 750;        // of the frame's inside that the window leaves free below it
constexpr int kLeastHeight = 1500; // in a frame with no room for more
constexpr int kMargin = 60;        // around the text

const std::string &GuideFile(const Modulo1 &app)
{
    return app.settings.Lingua == Language::Italian ? app.paths.GuidaPath : app.paths.GuidePath;
}

} // namespace

frmGuida::frmGuida(NotesState &notes) : NotesWindow("frmGuida", notes, PlacementEntry::Guide, notes.app.frame.mnuGuida)
{
    Text1.multiLine = true;
    Text1.readOnly = true;
    Text1.font = kGuideFont;
    Text1.KeyDown = [this](int key) { Text1_KeyDown(key); };
    Text1.DblClick = [this] { Text1_DblClick(); };
    Timer1.enabled = false;
    Timer1.Tick = [this] { Timer1_Timer(); };
}

void frmGuida::LayOut()
{
    Place inside = Text1.place;
    inside.left = kMargin;
    inside.top = kMargin;
    if (ScaleWidth() > 2 * kMargin) {
        inside.width = ScaleWidth() - 2 * kMargin;
    }
    if (ScaleHeight() > 2 * kMargin) {
        inside.height = ScaleHeight() - 2 * kMargin;
    }
    Text1.place = inside;
}

bool frmGuida::LoadWindow()
{
    entry_.State = StoredState::Normal;
    // Always in the same place, whatever the entry holds.
    const int height = app.face.Workspace().height - app.frame.Picture1.place.Get().height - kBelow;
    place = Place{0, 0, kWidth, std::max(height, kLeastHeight)};
    LayOut();
    Text1.accessibleName = app.messages.Text(TextId::UserGuide);
    Text1.text = ShownGuide(notes_.GuideText);
    notes_.GuideText.clear();

    caption = app.messages.Text(TextId::UserGuide) + " - " + std::string(kProgramTitle);
    Tag = ToolTag(ViewKind::Guide);
    return true;
}

void frmGuida::Resized()
{
    LayOut();
    StoreResized();
}

// The text is for reading: whatever the key, nothing becomes of it. To scroll by key is the face's business.
void frmGuida::Text1_KeyDown(int /*key*/) {}

void frmGuida::Text1_DblClick()
{
    const int target = JumpTarget(CharactersOfText(Text1.text.Get()), Text1.caret);
    Text1.caret = target;
    Text1.ShowAtTop(target);
}

void frmGuida::Timer1_Timer()
{
    Timer1.enabled = false;
    Text1_KeyDown(Key::PageDown);
}

void mnuGuida_Click(NotesState &notes)
{
    Modulo1 &app = notes.app;
    const std::string &path = GuideFile(app);
    app.CurrentOperation = app.messages.Text(TextId::Opening) + FileNameOf(path);
    const auto judge = [&app](RuntimeError error) {
        if (error.number == FileError::kFileNotFound) {
            app.messages.ShowMessage(MessageNo::FileNotFound, app.CurrentOperation, {});
            return Verdict::GiveUp;
        }
        return ClassifyingJudge{app}(error);
    };
    if (!Trapped([&] { return ReadGuide(app.ports.files, path, notes.GuideText); }, judge)) {
        return;
    }
    notes.GuideLength = static_cast<std::int32_t>(notes.GuideText.size());
    ShowChild<frmGuida>(notes.guide, notes);
}

} // namespace velluto
