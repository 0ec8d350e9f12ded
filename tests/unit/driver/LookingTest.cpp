#include "driver/Names.h"
#include "driver/Sha256.h"
#include "driver/Values.h"
#include "driver/Words.h"
#include "unit/driver/DriverTest.h"

namespace velluto::driver {
namespace {

TEST_F(DriverTest, NamesLeadToWindowsAndControls)
{
    StartWithControls();
    Velluto &program = session.Program();
    EXPECT_EQ(&FindWindow(program, "active"), &controls);
    EXPECT_EQ(&FindWindow(program, "frmAll"), &controls);
    EXPECT_EQ(&FindWindow(program, "frmMain"), &program.app.frame);
    EXPECT_EQ(&FindControl(controls, "List1(2)"), &controls.list);
    EXPECT_EQ(&FindControl(program.app.frame, "mnuRecentFile(1)"), &program.app.frame.mnuRecentFile[1]);
    EXPECT_EQ(&FindEntry(program, "mnuPcgApri"), &program.app.frame.mnuPcgApri);
    for (const char *name : {"frmAll(1)", "frmall", "", "frmPcgUN(3)"}) {
        EXPECT_THROW((void)FindWindow(program, name), BadCommand) << name;
    }
    for (const char *name : {"List1", "List1(02)", "list1(2)", ""}) {
        EXPECT_THROW((void)FindControl(controls, name), BadCommand) << name;
    }
}

TEST_F(DriverTest, ShowTellsWhatEachKindOfControlHas)
{
    StartWithControls();
    controls.list.SetRows({std::string(" 001 A\0", 7), "Pi\xE9no"});
    controls.list.place = Place{10, 20, 300, 400};
    controls.button.caption = "&Close";
    const Json shown = Ok("show frmAll").at("controls");
    EXPECT_EQ(shown.at("List1(2)"), Json::parse(R"({"rows":[" 001 A\u0000","Piéno"],"selected":[],"current":-1,
        "enabled":true,"visible":true,"left":10,"width":300})"));
    EXPECT_EQ(shown.at("Combo1"), Json::parse(R"({"rows":["OFF","LOWR"],"current":-1,"enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("CommClose"),
              Json::parse(R"({"caption":"&Close","color":15790320,"enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("CheckHoldNote"), Json::parse(R"({"caption":"","checked":false,"enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("Option1(1)"), Json::parse(R"({"caption":"","checked":false,"enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("Text1"), Json::parse(R"({"text":"","caret":0,"enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("Label1"), Json::parse(R"({"caption":"","enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("Picture1"), Json::parse(R"({"enabled":true,"visible":true,"left":0,"width":0})"));
    EXPECT_EQ(shown.at("Timer1"), Json::parse(R"({"enabled":true})"));
    EXPECT_EQ(shown.size(), controls.controls().size());

    const Json one = Ok("show frmAll Label1").at("controls");
    EXPECT_EQ(one.size(), 1U);
    EXPECT_TRUE(one.contains("Label1"));
    Error("show frmAll Label2");
    Error("show frmNone");
}

TEST_F(DriverTest, MenusTellsEveryEntry)
{
    StartWithControls();
    const Json menus = Ok("menus").at("menus");
    EXPECT_EQ(menus.at("mnuSalva"), Json::parse(R"({"caption":"Salva","enabled":true,"visible":true,"checked":false})"));
    EXPECT_TRUE(menus.contains("mnuPrfUser(20)"));
    EXPECT_TRUE(menus.contains("mnuSep13(1)"));
    EXPECT_FALSE(menus.contains("LabelTime"));
    EXPECT_EQ(Ok("show frmMain mnuSalva").at("controls").at("mnuSalva"), menus.at("mnuSalva"));
}

TEST_F(DriverTest, TagTellsPrefixAndImage)
{
    StartWithControls();
    const std::vector<std::uint8_t> bytes = {'a', 'b', 'c'};
    controls.Tag.prefix = std::string("\x0E\x00\xFF", 3);
    controls.Tag.image = FileImage(bytes);
    EXPECT_EQ(Ok("tag frmAll"), (Json{{"ok", true}, {"prefix", "0e00ff"}, {"length", 3}, {"sha256", Sha256(bytes)}}));
    Error("tag frmNone");
}

TEST_F(DriverTest, ImageWritesTheImageToAFile)
{
    StartWithControls();
    controls.Tag.image = FileImage(std::vector<std::uint8_t>{1, 0, 255});
    Ok("image frmAll out.bin");
    EXPECT_EQ(test::ReadBytes(folder.At("out.bin")), (test::Bytes{1, 0, 255}));
    Error("image frmAll nowhere/out.bin");
}

TEST_F(DriverTest, SentTellsMessagesAsTheDeviceReadsThem)
{
    session.midi.sent = {0x7900B0, 0x04C1, 0x30D2, 0x643C90};
    EXPECT_EQ(Ok("sent").at("messages"), Json::parse("[[176,0,121],[193,4],[210,48],[144,60,100]]"));
    EXPECT_EQ(Ok("sent").at("messages"), Json::array());
}

TEST_F(DriverTest, SentTellsWhatThruDid)
{
    session.midi.thru = {{ThruEvent::Kind::Connect, 1, 0, {}},
                         {ThruEvent::Kind::Start, 1, -1, {}},
                         {ThruEvent::Kind::Message, 1, 0, {192, 7}},
                         {ThruEvent::Kind::Stop, 1, -1, {}},
                         {ThruEvent::Kind::Disconnect, 1, 0, {}}};
    EXPECT_EQ(Ok("sent").at("thru"), Json::parse(R"([{"event":"connect","in":1,"out":0},{"event":"start","in":1,"out":null},
        {"event":"message","in":1,"out":0,"bytes":[192,7]},{"event":"stop","in":1,"out":null},{"event":"disconnect","in":1,"out":0}])"));
    EXPECT_EQ(Ok("sent").at("thru"), Json::array());
}

TEST_F(DriverTest, DialogsTellsTheFileDialogsSinceTheLastCall)
{
    FileDialog dialog;
    dialog.mode = FileDialog::Mode::Save;
    dialog.title = "Save file as";
    dialog.folder = "/music";
    dialog.filter = "Program (*.pcg)|*.pcg|";
    dialog.filterIndex = 3;
    dialog.proposed = "Untitled.prf";
    dialog.extension = "prf";
    EXPECT_TRUE(session.face.ShowFileDialog(dialog).cancelled);
    EXPECT_EQ(Ok("dialogs").at("dialogs"), Json::parse(R"([{"mode":"save","title":"Save file as","folder":"/music",
        "filter":"Program (*.pcg)|*.pcg|","filterIndex":3,"proposed":"Untitled.prf","extension":"prf"}])"));
    EXPECT_EQ(Ok("dialogs").at("dialogs"), Json::array());
}

TEST_F(DriverTest, PrintedTellsNoPagesWhereNothingWasPrinted)
{
    EXPECT_EQ(Ok("printed"), (Json{{"ok", true}, {"pages", Json::array()}}));
}

TEST_F(DriverTest, PrintedTellsEachPageOnce)
{
    StartWithControls();
    session.printer.CurrentX(453);
    session.printer.CurrentY(1134);
    session.printer.Print(std::string_view("Caf\xC3\xA9\0", 6));
    session.printer.Print("");
    session.printer.EndDoc();
    const Json answer = Ok("printed");
    EXPECT_EQ(OneLine(answer), "{\"ok\":true,\"pages\":[[{\"x\":453,\"y\":1134,\"text\":\"Caf\xC3\xA9\\u0000\"},"
                               "{\"x\":0,\"y\":1384,\"text\":\"\"}]]}");
    EXPECT_EQ(Ok("printed"), (Json{{"ok", true}, {"pages", Json::array()}}));
}

TEST_F(DriverTest, ValueReadsEveryVariableItKnows)
{
    StartWithControls();
    Ok("menu mnuTastiera");
    for (const std::string_view name : ValueNames()) {
        EXPECT_FALSE(Ok("value " + std::string(name)).at("value").is_null()) << name;
    }
}

TEST_F(DriverTest, ValueGivesNumbersTextsTruthsAndLists)
{
    StartWithControls();
    EXPECT_EQ(Ok("value Lingua").at("value"), 2);
    EXPECT_EQ(Ok("value ThruOn").at("value"), false);
    EXPECT_EQ(Ok("value AppDir").at("value"), folder.Path());
    EXPECT_EQ(Ok("value ChannelRole").at("value"), Json::parse("[2,14,0,0,0,0,0,0,0,0,0,0,0,0,0,0]"));
    EXPECT_EQ(Ok("value ClipValid").at("value"), 0);
    EXPECT_EQ(Ok("value MidiOutCaps").at("value"), Json::parse(R"(["One","","","","","","",""])"));
    EXPECT_EQ(Error("value NoSuchThing"), "no variable NoSuchThing");
}

TEST_F(DriverTest, TheKeyboardsNotesLiveAsLongAsItsWindow)
{
    StartWithControls();
    EXPECT_EQ(Error("value HeldNotes"), "the keyboard is not open");
    Ok("menu mnuTastiera");
    Ok("press frmTastiera CheckHoldNote");
    Ok("pointer frmTastiera Key(0) down");
    EXPECT_EQ(Ok("value HeldNotes").at("value").size(), 97U);
    EXPECT_EQ(Ok("value HeldNotes(24)").at("value"), 1); // note 36
    EXPECT_EQ(Ok("value BaseNote").at("value"), 36);
    Ok("press frmTastiera CommHoldChord");
    EXPECT_EQ(Ok("value ChordArmed").at("value"), 1);
    EXPECT_EQ(Ok("value ChordNotes(24)").at("value"), 1);
    Ok("close frmTastiera");
    EXPECT_EQ(Error("value CurrentNote"), "the keyboard is not open");
}

TEST_F(DriverTest, ShowTellsOfSlidersAndKeys)
{
    StartWithControls();
    const Json all = Ok("show frmAll").at("controls");
    const Json bar = all.at("VScroll(6)");
    EXPECT_EQ(bar.at("value"), 10);
    EXPECT_EQ(bar.at("min"), 20);
    EXPECT_EQ(bar.at("max"), 0);
    EXPECT_FALSE(bar.contains("caption"));
    const Json key = all.at("Key(0)");
    EXPECT_EQ(key.at("color"), 0x00FF00);
    EXPECT_EQ(key.at("checked"), false);
    EXPECT_EQ(all.at("Frame1").at("caption"), "Keys");
}

TEST_F(DriverTest, ValueGivesATableFromItsFirstIndexOn)
{
    StartWithControls();
    Velluto &program = session.Program();
    program.app.settings.PcgDocTable[1].Path.Set("/one.pcg");
    program.app.settings.StyDocTable[20].Role = 9;
    program.files.programs.openFlags[8] = true;
    const Json table = Ok("value PcgDocTable").at("value");
    EXPECT_EQ(table.size(), 12U);
    EXPECT_EQ(table.at(0).at("Path"), "/one.pcg");
    EXPECT_EQ(Ok("value PcgDocTable(1)").at("value"), table.at(0));
    EXPECT_EQ(Ok("value StyDocTable").at("value").size(), 21U);
    EXPECT_EQ(Ok("value StyDocTable(20)").at("value").at("Role"), 9);
    EXPECT_EQ(Ok("value PrfDocTable").at("value").size(), 29U);
    EXPECT_EQ(Ok("value RecentTable").at("value").size(), 16U);
    EXPECT_EQ(Ok("value PcgOpenFlags").at("value"), Json::parse("[0,0,0,0,0,0,0,1]"));
    EXPECT_EQ(Ok("value PcgTable").at("value").size(), 745U);
    EXPECT_EQ(Ok("value StyTable").at("value").size(), 271U);
    for (const char *name : {"PcgDocTable(0)", "PcgDocTable(13)", "PcgDocTable(", "PcgDocTable()", "PcgDocTable(x)", "Lingua(0)"}) {
        Error(std::string("value ") + name);
    }
}

} // namespace
} // namespace velluto::driver
