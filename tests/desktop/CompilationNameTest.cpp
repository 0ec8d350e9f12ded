// The name field of the player's compilations: what a file's name cannot have does not get in.
#include "desktop/PlayerDesk.h"

#include <QClipboard>
#include <QLineEdit>

namespace velluto::test {

namespace {

// What is left of two names. In one of Windows' there is more that cannot be.
#ifdef _WIN32
constexpr auto kPasted = "Liscio  n. 12 \u00e8 l\u00ec";
constexpr auto kTyped = "Sera 12 il meglio ";
#else
constexpr auto kPasted = "Liscio  n. 12: \u00e8 l\u00ec";
constexpr auto kTyped = "Sera 12: \"il *meglio*?\" <\\>|";
#endif

class CompilationNameTest : public PlayerDesk {
protected:
    QLineEdit &Field() { return Of<QLineEdit>(Form().Text2); }
    void Paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(&Field(), Qt::Key_V, Qt::ControlModifier);
    }
    void Begin()
    {
        Song("a.mid");
        Open();
        Click(Form().CommNuovo);
    }
};

TEST_F(CompilationNameTest, TakesNoSlashAndNoControlCharacter)
{
    Begin();
    QTest::keyClicks(&Field(), QStringLiteral("AC/DC"));
    EXPECT_EQ(Form().Text2.text.Get(), "ACDC");
    QTest::keyClick(&Field(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Field().text(), FromUtf8(Form().Text2.text.Get()));
    Field().selectAll();
    Paste(QString::fromUtf8("L/iscio \u0001 n.\u0085 1/2: \u00e8 l\u00ec"));
    EXPECT_EQ(Form().Text2.text.Get(), kPasted);
}

TEST_F(CompilationNameTest, KeepsTheCaretBehindWhatWasPasted)
{
    Begin();
    QTest::keyClicks(&Field(), QStringLiteral("ad"));
    QTest::keyClick(&Field(), Qt::Key_Left);
    Paste(QStringLiteral("/b/c/"));
    EXPECT_EQ(Field().text(), QStringLiteral("abcd"));
    EXPECT_EQ(Field().cursorPosition(), 3);
}

TEST_F(CompilationNameTest, IsNeverTooLongForAFile)
{
    constexpr int kRoom = 249; // bytes beside "c-" and ".cmp"
    Begin();
    Paste(QString(kRoom / 2, QChar(0xE8))); // two bytes each
    QTest::keyClicks(&Field(), QStringLiteral("xy"));
    EXPECT_EQ(Form().Text2.text.Get().size(), kRoom);
    EXPECT_EQ(Form().Text2.text.Get().back(), 'x');
    Paste(QStringLiteral("z"));
    EXPECT_EQ(Form().Text2.text.Get().size(), kRoom);
}

TEST_F(CompilationNameTest, IsSavedUnderWhateverCouldBeTyped)
{
    Begin();
    QTest::keyClicks(&Field(), QStringLiteral("Sera 1/2: \"il *meglio*?\" <\\>|"));
    Click(Form().CommAddAll);
    EXPECT_EQ(Form().Text2.text.Get(), kTyped);
    app.children.Unload(Form());
    EXPECT_TRUE(std::filesystem::exists(PathOfUtf8(folder->At(std::string("c-") + kTyped + ".cmp"))));
}

} // namespace

} // namespace velluto::test
