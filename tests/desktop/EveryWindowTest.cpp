// Every window of the program with something in it: no word on it is cut, and nothing on it is faint in either theme. Where
// VELLUTO_PICTURES names a folder, each is put there as a picture too, as wide as QT_SCALE_FACTOR and as dark as VELLUTO_THEME say.
#include "desktop/Contrast.h"
#include "desktop/Desk.h"
#include "desktop/ElidedLabel.h"
#include "desktop/FittedButton.h"
#include "desktop/Look.h"
#include "files/Banks.h"
#include "files/Opening.h"
#include "keyboard/KeyboardWindow.h"
#include "player/PlayerWindow.h"

#include <QCheckBox>
#include <QRadioButton>
#include <QStyleOption>

#include <filesystem>

namespace velluto::test {

namespace {

class EveryWindowTest : public Desk, public testing::WithParamInterface<TestProgram::Language> {
protected:
    void SetUp() override
    {
        std::filesystem::copy(VELLUTO_DATA, folder->Path(), std::filesystem::copy_options::recursive);
        std::filesystem::create_directory(folder->At("songs"));
        for (const char *name : {"songs/A slow waltz.mid", "songs/Bossa.mid", "songs/Last dance.mid"}) {
            WriteBytes(folder->At(name), Bytes(3, 0));
            sequencer.songs[folder->At(name)] = {2400, 0, {}};
        }
        language = GetParam();
        Start();
        ChooseMenu(app.frame.mnuDevMIDIOut[0]);
    }

    // The window that has just come up: looked at, pictured and closed.
    void Look(const std::string &name)
    {
        Settle();
        ASSERT_NE(app.children.Active(), nullptr) << name;
        Form &form = *app.children.Active();
        ChildWindow &window = Window(form);
        EXPECT_EQ(CutWords(window), QStringList()) << name;
        ExpectNothingFaint(window, name);
        Keep(window, name);
        window.close();
        Settle();
    }
    // Windows behind the active one, too.
    void LookAtFrame()
    {
        OpenSample("Full-8.prf");
        ChooseMenu(app.frame.mnuMsgEx);
        ChooseMenu(app.frame.mnuAffiancaOrizz);
        ExpectNothingFaint(Frame(), "frame");
    }
    void ExpectNothingFaint(QWidget &window, const std::string &name)
    {
        if (window.devicePixelRatioF() != 1) {
            return; // pictures in another scale: what is measured are the pixels of this one
        }
        for (const char *theme : {"dark", "light"}) {
            Wear(theme);
            EXPECT_EQ(FaintParts(window), "") << name << " in the " << theme << " theme";
        }
        ofTheRun_.isNull() ? Wear(nullptr) : Wear(ofTheRun_);
    }
    // What a window says and has no room for. Labels for paths end in dots by design, and tell the whole in a tool tip.
    static QStringList CutWords(const QWidget &window)
    {
        QStringList cut;
        for (const QAbstractButton *button : window.findChildren<QAbstractButton *>()) {
            const auto *fitted = dynamic_cast<const FittedButton *>(button);
            const QFontMetrics metrics(fitted != nullptr ? fitted->FittedFont() : button->font());
            if (button->isVisible() && metrics.size(Qt::TextShowMnemonic, button->text()).width() > RoomOf(*button)) {
                cut << button->objectName() + QStringLiteral(": ") + button->text();
            }
        }
        for (const QLabel *label : window.findChildren<QLabel *>()) {
            const int room = label->contentsRect().width();
            if (label->isVisible() && !label->wordWrap() && !dynamic_cast<const ElidedLabel *>(label) &&
                label->fontMetrics().size(Qt::TextShowMnemonic, label->text()).width() > room) {
                cut << label->objectName() + QStringLiteral(": ") + label->text();
            }
        }
        return cut;
    }
    // Logical pixels between a button's edges, or beside the box of a check box.
    static int RoomOf(const QAbstractButton &button)
    {
        if (dynamic_cast<const QCheckBox *>(&button) == nullptr && dynamic_cast<const QRadioButton *>(&button) == nullptr) {
            return button.width();
        }
        QStyleOptionButton option;
        option.initFrom(&button);
        return button.style()->subElementRect(QStyle::SE_CheckBoxContents, &option, &button).width();
    }
    void Wear(const char *theme)
    {
        theme != nullptr ? qputenv("VELLUTO_THEME", theme) : qunsetenv("VELLUTO_THEME");
        SetUpLook();
        Settle();
    }
    void Keep(QWidget &window, const std::string &name)
    {
        const QString to = qEnvironmentVariable("VELLUTO_PICTURES");
        if (!to.isEmpty()) {
            const char *tongue = GetParam() == TestProgram::Italian ? "it" : "en";
            EXPECT_TRUE(window.grab().save(QStringLiteral("%1/%2-%3.png").arg(to, QString::fromStdString(name), QLatin1String(tongue))));
        }
    }
    // Opened and tied to the first user bank.
    void OpenSample(const char *name)
    {
        OpenNamedFile(program.files, folder->At(std::string("samples/") + name));
        Settle();
        QTest::mouseClick(&Widget<QAbstractButton>(*app.children.Active(), "CommUser(9)"), Qt::LeftButton);
    }

private:
    QByteArray ofTheRun_ = qgetenv("VELLUTO_THEME");
};

TEST_P(EveryWindowTest, HasRoomForItsWordsAndNothingFaint)
{
    frmMain &menu = app.frame;
    OpenSample("Full-64.pcg");
    Look("program-file");
    OpenSample("Grouped-16.sty");
    Look("style-file");
    OpenSample("Full-8.prf");
    Look("performance-file");
    ShowStyleOverview(program.files, ViewKind::StyleOverview);
    Look("StyUserAll");
    mnuPrfUserAll_Click(program.files);
    Look("PrfUserAll");
    for (MenuEntry *entry :
         {&menu.mnuPcgNuovo128, &menu.mnuStyNuovo, &menu.mnuPrfNuovo, &menu.mnuBankA, &menu.mnuBankB, &menu.mnuBankF, &menu.mnuSty[1],
          &menu.mnuMsgEx, &menu.mnuMIDISetup, &menu.mnuTastiera, &menu.mnuBloccoNote, &menu.mnuGuida, &menu.mnuInfo}) {
        ChooseMenu(*entry);
        Look(entry->FullName().substr(3));
    }
    app.settings.PlayerPanelOpen = true;
    app.settings.PlayerDir = folder->At("songs");
    ChooseMenu(menu.mnuMidiPlayer);
    Look("MidiPlayer");
    Keep(Frame(), "frame");
    LookAtFrame();
}

INSTANTIATE_TEST_SUITE_P(In, EveryWindowTest, testing::Values(TestProgram::Italian, TestProgram::English),
                         [](const auto &made) { return made.param == TestProgram::Italian ? "Italian" : "English"; });

} // namespace

} // namespace velluto::test
