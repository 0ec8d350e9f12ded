// Real windows used at random: after each step the pixels on the screen are those of a full repaint, and the row that a click
// takes is the row that is painted there. VELLUTO_MONKEY_STEPS makes a longer evening of it, VELLUTO_MONKEY_SEED another one.
#include "desktop/Desk.h"
#include "desktop/Look.h"
#include "files/Opening.h"

#include <QComboBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>

#include <filesystem>
#include <random>

namespace velluto::test {

namespace {

class ScreenTest : public Desk {
protected:
    void SetUp() override
    {
        std::filesystem::copy(VELLUTO_DATA, folder->Path(), std::filesystem::copy_options::recursive);
        std::filesystem::create_directory(folder->At("songs"));
        for (int song = 0; song < 90; ++song) {
            std::filesystem::create_directory(folder->At("songs/Folder " + std::to_string(song)));
            WriteBytes(folder->At("songs/A song of the evening, number " + std::to_string(song) + ".mid"), Bytes(3, 0));
            WriteBytes(folder->At("c-Evening " + std::to_string(song) + ".cmp"), {});
        }
        QApplication::setCursorFlashTime(0); // a caret that blinks is no fault
        QObject::connect(&closer_, &QTimer::timeout, &CloseWhateverAsks);
        closer_.start(1);
        Start();
        Frame().resize(1000, 680);
    }
    void TearDown() override
    {
        closer_.stop();
        qunsetenv("VELLUTO_THEME");
        SetUpLook();
        Desk::TearDown();
    }
    // A question, a dialog or a menu that a step has brought up would wait for ever.
    static void CloseWhateverAsks()
    {
        if (QWidget *popup = QApplication::activePopupWidget()) {
            popup->close();
        } else if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            dialog->reject();
        } else if (QWidget *modal = QApplication::activeModalWidget()) {
            modal->close();
        }
    }

    // The style smooths a rounded corner one way where it paints it whole and another where it paints a part.
    static constexpr int kCorners = 8; // pixels
    // A shade that nobody sees is none: scaled arrows of scroll bars come out of the style's cache a shade lighter.
    static constexpr int kShade = 8;
    static int Distance(QRgb a, QRgb b)
    {
        return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
    }
    struct Difference {
        int pixels = 0;
        QRect where;
    };
    static Difference Compare(const QImage &one, const QImage &other)
    {
        Difference found;
        if (one.size() != other.size()) {
            return {std::numeric_limits<int>::max(), one.rect()};
        }
        for (int y = 0; y < one.height(); ++y) {
            const auto *a = reinterpret_cast<const QRgb *>(one.constScanLine(y));
            const auto *b = reinterpret_cast<const QRgb *>(other.constScanLine(y));
            for (int x = 0; x < one.width(); ++x) {
                if (a[x] != b[x] && Distance(a[x], b[x]) > kShade) {
                    ++found.pixels;
                    found.where |= QRect(x, y, 1, 1);
                }
            }
        }
        return found;
    }
    [[nodiscard]] QImage Screen() { return Frame().screen()->grabWindow(Frame().winId()).toImage().convertToFormat(QImage::Format_RGB32); }
    // What the screen shows, and what it would show if every widget painted itself once more. A timer of the program's may have
    // changed a widget that will be painted in a moment; what is stale stays so.
    void ExpectTheScreenIsPainted(const std::string &after)
    {
        constexpr int kLooks = 5;
        constexpr qsizetype kTold = 12; // of the last steps
        QImage shown;
        QImage anew;
        Difference found;
        steps_ << FromUtf8(after);
        for (int look = 0; look < kLooks; ++look) {
            Settle();
            shown = Screen();
            anew = Frame().grab().toImage().convertToFormat(QImage::Format_RGB32);
            found = shown == anew ? Difference() : Compare(shown, anew);
            if (found.pixels <= kCorners) {
                return;
            }
        }
        const QString to = qEnvironmentVariable("VELLUTO_PICTURES");
        if (!to.isEmpty()) {
            shown.save(to + QStringLiteral("/shown.png"));
            anew.save(to + QStringLiteral("/anew.png"));
        }
        FAIL() << "after " << steps_.mid(std::max<qsizetype>(steps_.size() - kTold, 0)).join(QStringLiteral(", ")).toStdString()
               << " the screen is not what a full repaint makes it: " << found.pixels << " pixels from " << found.where.left() << ", "
               << found.where.top() << " to " << found.where.right() << ", " << found.where.bottom();
    }

    // ---- what a hand may do

    int Pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(below, 1))); }
    QPoint PointIn(const QWidget &widget) { return {Pick(widget.width()), Pick(widget.height())}; }
    template <class W>
    W *AnyVisible()
    {
        QList<W *> visible;
        for (QWidget *widget : Frame().findChildren<QWidget *>()) {
            auto *wanted = dynamic_cast<W *>(widget);
            if (wanted != nullptr && wanted->isVisible() && !wanted->visibleRegion().isEmpty()) {
                visible << wanted;
            }
        }
        return visible.isEmpty() ? nullptr : visible[Pick(static_cast<int>(visible.size()))];
    }
    static void Wheel(QWidget &widget, const QPoint &at, int turned)
    {
        QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, turned}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    }
    static void Drag(QWidget &widget, const QPoint &from, const QPoint &to)
    {
        const auto send = [&widget](QEvent::Type type, const QPoint &at, Qt::MouseButtons held) {
            QMouseEvent event(type, at, widget.mapToGlobal(at), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, {});
            QApplication::sendEvent(&widget, &event);
        };
        const QPointer<QWidget> still(&widget);
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        for (int step = 1; step <= 3 && still; ++step) {
            send(QEvent::MouseMove, from + (to - from) * step / 3, Qt::LeftButton);
        }
        if (still) {
            send(QEvent::MouseButtonRelease, to, Qt::NoButton);
        }
    }
    void OpenAWindow()
    {
        frmMain &menu = app.frame;
        const std::vector<MenuEntry *> entries{&menu.mnuPcgNuovo128, &menu.mnuStyNuovo,   &menu.mnuPrfNuovo, &menu.mnuBankA,
                                               &menu.mnuBankF,       &menu.mnuSty[1],     &menu.mnuMsgEx,    &menu.mnuMIDISetup,
                                               &menu.mnuTastiera,    &menu.mnuBloccoNote, &menu.mnuGuida,    &menu.mnuInfo,
                                               &menu.mnuMidiPlayer,  &menu.mnuMidiPlayer};
        if (app.children.ChildCount > 9) {
            app.children.Active()->place = Place{Pick(9000), Pick(6000), 6000 + Pick(6000), 3000 + Pick(6000)};
            return;
        }
        const int which = Pick(static_cast<int>(entries.size()) + 3);
        const char *files[]{"Full-64.pcg", "Grouped-16.sty", "Full-8.prf"};
        if (which < static_cast<int>(entries.size())) {
            ChooseMenu(*entries[static_cast<std::size_t>(which)]);
        } else {
            OpenNamedFile(program.files, folder->At(std::string("samples/") + files[which - static_cast<int>(entries.size())]));
        }
    }
    // The row that is painted under the pointer is the row that a click takes.
    std::string ClickARow()
    {
        auto *list = AnyVisible<ListView>();
        if (list == nullptr) {
            return "nothing to click";
        }
        const QPoint at = PointIn(*list->viewport());
        const QModelIndex row = list->indexAt(at);
        if (row.isValid()) {
            constexpr int kBetweenColumns = 2; // pixels that belong to the row on their left
            EXPECT_TRUE(list->visualRect(row).adjusted(0, 0, kBetweenColumns, 0).contains(at)) << list->objectName().toStdString();
            const QPointer<ListView> still(list);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
            if (still && list->currentIndex().isValid() && list->model()->rowCount() > row.row()) {
                EXPECT_TRUE(list->selectionModel()->isSelected(row) || !list->isEnabled()) << list->objectName().toStdString();
            }
        }
        return "a click on row " + std::to_string(row.row()) + " of a list";
    }
    std::string AStep()
    {
        constexpr std::array kKeys{Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home,  Qt::Key_End, Qt::Key_Down,
                                   Qt::Key_Up,       Qt::Key_Left,   Qt::Key_Right, Qt::Key_Tab, Qt::Key_Space};
        QMdiSubWindow *active = Frame().findChild<QMdiArea *>()->activeSubWindow();
        const bool movable = active != nullptr && !active->isMaximized() && !active->isMinimized();
        switch (const int what = Pick(15)) {
        case 0:
            OpenAWindow();
            return "opening a window";
        case 1:
        case 2:
            if (auto *area = AnyVisible<QAbstractScrollArea>()) {
                Wheel(*area->viewport(), PointIn(*area->viewport()), 120 * (Pick(7) - 3));
                return "the wheel over " + area->objectName().toStdString();
            }
            return "no wheel";
        case 3:
        case 4:
            if (auto *bar = AnyVisible<QScrollBar>()) {
                Drag(*bar, PointIn(*bar), PointIn(*bar));
                return "a drag of a scroll bar";
            }
            return "no drag";
        case 5:
        case 6:
            return ClickARow();
        case 7:
        case 8:
            if (QWidget *focus = QApplication::focusWidget()) {
                const Qt::Key key = kKeys[static_cast<std::size_t>(Pick(static_cast<int>(kKeys.size())))];
                QTest::keyClick(focus, key);
                return "key " + std::to_string(key);
            }
            return "no key";
        case 9:
            if (movable) {
                active->resize(200 + Pick(900), 120 + Pick(600));
            }
            return "a resize";
        case 10:
            if (movable) {
                active->move(Pick(900) - 100, Pick(600));
            }
            return "a move";
        case 11:
            if (active != nullptr) {
                const std::array<void (QMdiSubWindow::*)(), 3> states{&QMdiSubWindow::showMinimized, &QMdiSubWindow::showMaximized,
                                                                      &QMdiSubWindow::showNormal};
                (active->*states[static_cast<std::size_t>(Pick(3))])();
            }
            return "another state";
        case 12: {
            MenuEntry *arrange[]{&app.frame.mnuSovrapponi, &app.frame.mnuAffiancaOrizz, &app.frame.mnuAffiancaVert};
            ChooseMenu(*arrange[Pick(3)]);
            return "an order of windows";
        }
        case 13:
            if (Pick(4) == 0) {
                dark_ = !dark_;
                qputenv("VELLUTO_THEME", dark_ ? "dark" : "light");
                SetUpLook();
                return "another theme";
            }
            if (auto *button = AnyVisible<QAbstractButton>()) {
                QTest::mouseClick(button, Qt::LeftButton);
                return "a button";
            }
            return "no button";
        default:
            Frame().resize(700 + Pick(500), 450 + Pick(400));
            return "a resize of the frame " + std::to_string(what);
        }
    }

    std::mt19937 random_{static_cast<unsigned>(qEnvironmentVariable("VELLUTO_MONKEY_SEED", QStringLiteral("58")).toUInt())};

private:
    QTimer closer_;
    bool dark_ = false;
    QStringList steps_;
};

TEST_F(ScreenTest, IsPaintedAsAFullRepaintWouldHoweverTheWindowsAreUsed)
{
    app.settings.PlayerPanelOpen = true;
    app.settings.PlayerDir = folder->At("songs");
    ChooseMenu(app.frame.mnuMidiPlayer);
    const int steps = qEnvironmentVariable("VELLUTO_MONKEY_STEPS", QStringLiteral("1000")).toInt();
    for (int step = 0; step < steps && !HasFailure(); ++step) {
        ExpectTheScreenIsPainted(AStep() + " (step " + std::to_string(step) + ")");
    }
}

} // namespace

} // namespace velluto::test
