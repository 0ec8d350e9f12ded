// Files that are dropped on the frame, and those that are none of the program's.
#include "desktop/PlayerDesk.h"

#include <QDropEvent>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QUrl>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace velluto::test {

namespace {

class DropTest : public PlayerDesk {
protected:
    void SetUp() override
    {
        PlayerDesk::SetUp();
        WriteBytes(folder->At("a.pcg"), Bytes(8, 1));
        WriteBytes(folder->At("b.STY"), Bytes(8, 1));
        WriteBytes(folder->At("c.txt"), Bytes(8, 1));
        Song("d.midi");
    }
    QMimeData *Bringing(const std::vector<std::string> &paths)
    {
        QList<QUrl> urls;
        for (const std::string &path : paths) {
            urls.append(QUrl::fromLocalFile(FromUtf8(path)));
        }
        brought_.setUrls(urls);
        return &brought_;
    }
    // True where somebody takes them.
    bool Over(QWidget &widget, const std::vector<std::string> &paths)
    {
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, Bringing(paths), Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &enter);
        return enter.isAccepted();
    }
    Qt::DropAction Drop(const std::vector<std::string> &paths)
    {
        Over(Frame(), paths); // Qt gives the drop to who has taken what was drawn in
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction | Qt::MoveAction, Bringing(paths), Qt::LeftButton, {});
        drop.setDropAction(Qt::MoveAction);
        QCoreApplication::sendEvent(&Frame(), &drop);
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }

private:
    QMimeData brought_;
};

TEST_F(DropTest, FilesOpenAsTheirNamesTellAndAreNeverTakenAway)
{
    Start();
    EXPECT_TRUE(Over(Frame(), {folder->At("a.pcg"), folder->At("c.txt")}));
    int boxes = 0; // neither file is one of the instrument's: each is refused as an argument is
    const auto answer = [&boxes](QWidget &box) {
        ++boxes;
        QTest::keyClick(&box, Qt::Key_Return);
    };
    WhenModal([&](QWidget &box) {
        answer(box);
        WhenModal(answer);
    });
    EXPECT_EQ(Drop({folder->At("a.pcg"), folder->At("b.STY"), folder->At("c.txt")}), Qt::CopyAction);
    Settle();
    EXPECT_EQ(boxes, 2);
}

TEST_F(DropTest, WhatIsNoneOfOursIsLeftAlone)
{
    Start();
    EXPECT_FALSE(Over(Frame(), {folder->At("c.txt")}));
    EXPECT_FALSE(Over(Frame(), {folder->At("missing.pcg")}));
    EXPECT_FALSE(Over(Frame(), {folder->At("d")}));
    EXPECT_EQ(Drop({folder->At("c.txt")}), Qt::IgnoreAction);
}

TEST_F(DropTest, WhatIsNoFileIsLeftAloneWhateverItsName)
{
    std::filesystem::create_directory(folder->At("folder.pcg"));
    std::vector<std::string> names{"folder.pcg"};
#ifndef _WIN32
    ASSERT_EQ(::mkfifo(folder->At("pipe.sty").c_str(), 0600), 0);
    std::filesystem::create_symlink("/dev/zero", folder->At("device.prf"));
    std::filesystem::create_symlink("loop.pcg", folder->At("loop.pcg"));
    names.insert(names.end(), {"pipe.sty", "device.prf", "loop.pcg"});
#endif
    Start();
    for (const std::string &name : names) {
        EXPECT_FALSE(Over(Frame(), {folder->At(name)})) << name;
        EXPECT_EQ(Drop({folder->At(name)}), Qt::IgnoreAction) << name;
    }
}

TEST_F(DropTest, TheNotebookLeavesFilesToTheFrame)
{
    Start();
    ChooseMenu(app.frame.mnuBloccoNote);
    Settle();
    auto &edit = Widget<QPlainTextEdit>(*app.children.Active(), "Text1");
    EXPECT_TRUE(Over(*edit.viewport(), {folder->At("a.pcg")}));
    EXPECT_FALSE(Over(*edit.viewport(), {folder->At("c.txt")}));
    EXPECT_TRUE(edit.toPlainText().isEmpty());
}

TEST_F(DropTest, AMidiFileShowsItsFolderInThePlayersPanelAndIsOpened)
{
    Open(false);
    app.settings.PlayerDir = folder->Path();
    EXPECT_EQ(Drop({In("b.mid")}), Qt::CopyAction);
    Settle();
    EXPECT_EQ(app.settings.PlayerDir, folder->At("d"));
    EXPECT_TRUE(Form().Frame4.visible);
    EXPECT_TRUE(app.settings.PlayerPanelOpen);
    EXPECT_EQ(SelectedRows(Form().ListMidiSel), std::vector<int>{1});
    EXPECT_EQ(Form().MMControl1.FileName, In("b.mid"));
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
}

TEST_F(DropTest, ASongThatPlaysGivesWay)
{
    Open();
    DoubleClickRow(Form().ListMidiSel, 0);
    ASSERT_EQ(Mode(), SequencerMode::kPlaying);
    Drop({In("d.midi")});
    Settle();
    EXPECT_EQ(Form().MMControl1.FileName, In("d.midi"));
    EXPECT_EQ(Mode(), SequencerMode::kStopped);
    EXPECT_TRUE(SelectedRows(Form().ListMidiSel).empty());
    Transport(2);
    EXPECT_EQ(Mode(), SequencerMode::kPlaying);
    Transport(1); // from outside the rows the next file is the first
    EXPECT_TRUE(QTest::qWaitFor([this] { return Form().MMControl1.FileName == In("a.mid"); }));
}

TEST_F(DropTest, AFolderThatIsGoneLeavesThePlayerAsItWas)
{
    Open();
    ClickRow(Form().ListMidiSel, 2);
    WhenModal([](QWidget &box) { QTest::keyClick(&box, Qt::Key_Return); });
    OpenMidiFile(program.player, folder->At("gone/x.mid"));
    EXPECT_EQ(app.settings.PlayerDir, folder->At("d"));
    EXPECT_EQ(Form().MMControl1.FileName, In("c.mid"));
}

} // namespace

} // namespace velluto::test
