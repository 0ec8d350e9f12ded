// Any sequence of what a hand can do to the piano: whatever it is, no note is left behind.
#include "desktop/KeyboardDesk.h"
#include "unit/keyboard/Recorder.h"

#include <random>

namespace velluto::test {

namespace {

constexpr int kSequences = 12;
constexpr int kEvents = 60;

class PianoSequence : public KeyboardDesk {
protected:
    void Begin(unsigned seed)
    {
        chance_.seed(seed);
        recorder = {};
        held_ = {};
        space_ = false;
        Keys().setFocus();
    }
    std::string Step()
    {
        const int key = Any(61);
        switch (Any(12)) {
        case 0:
            return Push(Qt::LeftButton, key);
        case 1:
            return Push(Qt::RightButton, key);
        case 2:
            return LetGo(Qt::LeftButton, On(key));
        case 3:
            return LetGo(Qt::RightButton, QPointF(-200, 500));
        case 4:
        case 5:
            Move(On(key, Any(1400) % (Form().Key[key].black ? 972 : 1404)), held_);
            return "move to " + std::to_string(key);
        case 6:
            return GoOutside();
        case 7:
            QTest::keyClick(&Keys(), Any(2) == 0 ? Qt::Key_Left : Qt::Key_Right);
            return "arrow";
        case 8:
            return PushSpace();
        case 9:
            return LetGoOfSpace();
        case 10:
            return ChangeFocus();
        default:
            return Any(2) == 0 ? HideAndShow() : MeetABox();
        }
    }
    // All hands off.
    void End()
    {
        LetGo(Qt::LeftButton, On(30));
        LetGo(Qt::RightButton, On(30));
        LetGoOfSpace();
        LeavePiano();
        Bar("VScroll(0)").setFocus();
        Listen();
    }
    std::set<int> &Listen()
    {
        for (const std::uint32_t message : Taken()) {
            recorder.Hear(message);
        }
        return recorder.sounding[0];
    }
    [[nodiscard]] bool HandsOff() const { return held_ == Qt::NoButton && !space_; }
    [[nodiscard]] int Spaces() const { return spaces_; }

    Recorder recorder;

private:
    int Any(int below) { return static_cast<int>(chance_() % static_cast<unsigned>(below)); }
    std::string Push(Qt::MouseButton button, int key)
    {
        if (!held_.testFlag(button)) {
            Send(QEvent::MouseMove, On(key), Qt::NoButton, held_);
            held_ |= button;
            Send(QEvent::MouseButtonPress, On(key), button, held_);
        }
        return "button " + std::to_string(button) + " down on " + std::to_string(key);
    }
    std::string LetGo(Qt::MouseButton button, const QPointF &at)
    {
        if (held_.testFlag(button)) {
            held_ &= ~Qt::MouseButtons(button);
            Send(QEvent::MouseButtonRelease, at, button, held_);
        }
        return "button " + std::to_string(button) + " up";
    }
    std::string GoOutside()
    {
        if (held_ == Qt::NoButton) {
            LeavePiano();
        } else {
            Move(QPointF(-100, -50), held_); // a held button holds the pointer
        }
        return "go outside";
    }
    std::string PushSpace()
    {
        Keys().setFocus();
        if (Keys().hasFocus()) { // not while another window is the active one
            QTest::keyPress(&Keys(), Qt::Key_Space);
            space_ = true;
            ++spaces_;
        }
        return "space down";
    }
    std::string LetGoOfSpace()
    {
        if (space_) {
            QTest::keyRelease(&Keys(), Qt::Key_Space);
            EXPECT_TRUE(QTest::qWaitFor([this] { return !Keys().DoubtsRelease(); }));
            space_ = false;
        }
        return "space up";
    }
    std::string ChangeFocus()
    {
        Bar("VScroll(0)").setFocus();
        space_ = false; // its release will be heard elsewhere
        return "focus elsewhere";
    }
    std::string HideAndShow()
    {
        app.children.Minimise(Form());
        Settle();
        app.children.Restore(Form());
        Settle();
        held_ = {};
        space_ = false;
        return "hide and show";
    }
    std::string MeetABox()
    {
        WhenModal([](QWidget &box) { box.close(); });
        face.MessageBox("Velluto", "a box from elsewhere", Box::kNotice);
        Frame().activateWindow();
        Settle();
        held_ = {};
        space_ = false;
        return "a box";
    }

    std::minstd_rand chance_;
    Qt::MouseButtons held_;
    bool space_ = false;
    int spaces_ = 0; // how often it was pressed
};

TEST_F(PianoSequence, InPressModeOneNoteAtMostSoundsAndNoneWithTheHandsOff)
{
    Open();
    int heard = 0;
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Begin(seed);
        std::string story;
        for (int event = 0; event < kEvents; ++event) {
            story += Step() + "\n";
            heard += Listen().empty() ? 0 : 1;
            ASSERT_LE(recorder.sounding[0].size(), HandsOff() ? 0U : 1U) << "seed " << seed << "\n" << story;
        }
        End();
        ASSERT_TRUE(recorder.sounding[0].empty()) << "seed " << seed << "\n" << story;
    }
    EXPECT_GT(heard, kSequences);
    EXPECT_GT(Spaces(), kSequences);
}

TEST_F(PianoSequence, InGlideModeOneNoteAtMostSoundsAndNoneOnceThePointerHasLeft)
{
    Open(false);
    int heard = 0;
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Begin(seed);
        std::string story;
        for (int event = 0; event < kEvents; ++event) {
            story += Step() + "\n";
            heard += Listen().empty() ? 0 : 1;
            ASSERT_LE(recorder.sounding[0].size(), 1U) << "seed " << seed << "\n" << story;
        }
        End();
        ASSERT_TRUE(recorder.sounding[0].empty()) << "seed " << seed << "\n" << story;
    }
    EXPECT_GT(heard, kSequences);
}

TEST_F(PianoSequence, InLatchModeAllNotesOffEndsWhatEveryHandHasLatched)
{
    Open(true, true);
    std::size_t latched = 0;
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Begin(seed);
        for (int event = 0; event < kEvents; ++event) {
            Step();
            latched += Listen().size();
        }
        Press(Form().CommAllNoteOff);
        ASSERT_TRUE(Listen().empty()) << "seed " << seed;
        End();
        Press(Form().CommAllNoteOff);
        Listen();
    }
    EXPECT_GT(latched, static_cast<std::size_t>(kSequences));
}

} // namespace

} // namespace velluto::test
