#include "unit/driver/DriverTest.h"
#include "unit/support/NativePath.h"

namespace velluto::driver {
namespace {

TEST_F(DriverTest, AnswersEachCommandWithOneLineAndRemarksWithNone)
{
    EXPECT_EQ(Answer(session, "sent"), R"({"ok":true,"messages":[],"thru":[]})");
    EXPECT_EQ(Answer(session, ""), std::nullopt);
    EXPECT_EQ(Answer(session, "# sent"), std::nullopt);
}

TEST_F(DriverTest, RefusesUnknownCommandsAndWrongCounts)
{
    EXPECT_EQ(Error("dance"), "unknown command dance");
    EXPECT_EQ(Error("start"), "usage: start none|it|en|cancel");
    EXPECT_EQ(Error("exit now"), "usage: exit");
    EXPECT_EQ(Error("\"sent"), "a quote is not closed");
    EXPECT_EQ(Error("\"\""), "unknown command ");
}

TEST_F(DriverTest, DeviceAddsOutputsAndInputsWithTheirCodes)
{
    Ok("device out \"Korg PA80\" open=1 caps=2 send=3 close=4");
    Ok("device in Keys open=1 caps=2 close=3 connect=4 start=5 stop=6 disconnect=7");
    ASSERT_EQ(session.midi.outs.size(), 1U);
    ASSERT_EQ(session.midi.ins.size(), 1U);
    const StandinDevice &out = session.midi.outs[0];
    EXPECT_EQ(out.name, "Korg PA80");
    EXPECT_EQ((std::array{out.codes.open, out.codes.caps, out.codes.send, out.codes.close}), (std::array{1, 2, 3, 4}));
    const StandinCodes &in = session.midi.ins[0].codes;
    EXPECT_EQ((std::array{in.open, in.caps, in.close, in.connect, in.start, in.stop, in.disconnect}), (std::array{1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(DriverTest, ADeviceThatIsAddedAfterTheStartIsNotInTheMenus)
{
    Ok("device out First");
    Ok("device in Keys");
    Ok("start en");
    Ok("device out Second");
    Ok("drop mnuPreferenze");
    EXPECT_EQ(Ok("menu mnuDevMIDIOut(1)")["chosen"], false);
    EXPECT_EQ(Ok("value MidiOutCount")["value"], 1);
}

TEST_F(DriverTest, DeviceRefusesWhatADeviceHasNot)
{
    Error("device out X connect=1");
    Error("device in X send=1");
    Error("device out X send");
    Error("device out X send=-1");
    Error("device through X");
    Error("device out");
    EXPECT_TRUE(session.midi.outs.empty());
    EXPECT_TRUE(session.midi.ins.empty());
}

TEST_F(DriverTest, DeviceSetChangesOnlyTheCodesItNames)
{
    Ok("device out X open=4 send=5");
    Ok("device set out 0 send=0 close=9");
    EXPECT_EQ(session.midi.outs[0].codes.open, 4);
    EXPECT_EQ(session.midi.outs[0].codes.send, 0);
    EXPECT_EQ(session.midi.outs[0].codes.close, 9);
    Error("device set out 1 send=0");
    Error("device set out 0");
    Error("device set in 0 open=1");
    Error("device set out 0 open=1 bad=2");
    EXPECT_EQ(session.midi.outs[0].codes.open, 4);
}

TEST_F(DriverTest, ReceiveNeedsAnOpenInput)
{
    Ok("device in Keys");
    EXPECT_EQ(Error("receive 0 144 60 100"), "MIDI input 0 is not open");
    Error("receive 1 144");
    Error("receive 0");
}

TEST_F(DriverTest, NowTakesOnlyRealDatesAndTimes)
{
    Ok("now 2004-02-29 23:59:59");
    EXPECT_EQ(session.clock.ShortDate(), "29/02/2004");
    EXPECT_EQ(session.clock.Time(), "23:59:59");
    for (const char *wrong : {"2005-02-29 00:00:00", "2005-13-01 00:00:00", "2005-01-01 24:00:00", "2005-01-01 00:60:00",
                              "2005-01-01 00:00:60", "05-01-01 00:00:00", "2005/01/01 00:00:00", "2005-01-01 000000"}) {
        Error(std::string("now ") + wrong);
    }
    EXPECT_EQ(session.clock.ShortDate(), "29/02/2004");
}

TEST_F(DriverTest, SeqKeepsWhatIsToldOfAPath)
{
    Ok("seq define song.mid 400");
    Ok(R"(seq refuse "bad song.mid" 277 "It will not open.")");
    Ok("seq rate 50");
    std::map<std::string, StandinSong> &songs = session.sequencer.songs;
    ASSERT_EQ(songs.size(), 2U);
    EXPECT_EQ(songs[folder.At("song.mid")].length, 400);
    EXPECT_EQ(songs[folder.At("bad song.mid")].error, 277);
    EXPECT_EQ(songs[folder.At("bad song.mid")].refusal.words, "It will not open.");
    EXPECT_EQ(session.sequencer.rate, StandinSequencer::Milliseconds{50});
    Ok("seq define song.mid 500");
    EXPECT_EQ(songs.size(), 2U);
    EXPECT_EQ(songs[folder.At("song.mid")].length, 500);
    Error("seq define song.mid");
    Error("seq rate 0");
    Error("seq forget song.mid 1");
}

TEST_F(DriverTest, FaultFailsTheNextSuchOperationsOnThePath)
{
    Ok("fault open a.pcg 75");
    Ok("fault any /b.pcg 61 3");
    ASSERT_EQ(session.files.faults.size(), 2U);
    EXPECT_EQ(session.files.faults[0].path, folder.At("a.pcg"));
    EXPECT_EQ(session.files.faults[0].times, 1);
    EXPECT_EQ(session.files.faults[1].path, test::OnFirstDisk("/b.pcg"));
    EXPECT_EQ(session.files.faults[1].times, 3);
    std::unique_ptr<RandomAccessFile> file;
    EXPECT_EQ(session.files.Open(folder.At("a.pcg"), file).number, 75);
    EXPECT_EQ(session.files.Open(folder.At("a.pcg"), file).number, 0);
    Error("fault close a.pcg 75");
    Error("fault open a.pcg 0");
    Error("fault open a.pcg 75 0");
}

TEST_F(DriverTest, PathsInDriveFormAreLeftAlone)
{
    EXPECT_EQ(session.FullPath("C:\\music\\a.pcg"), "C:\\music\\a.pcg");
    EXPECT_EQ(session.FullPath("sub/../a.pcg"), folder.At("a.pcg"));
    EXPECT_EQ(session.FullPath(""), "");
}

} // namespace
} // namespace velluto::driver
