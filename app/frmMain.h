// The frame: its menu tree, its status bar and its clock. Plain data that reads like the tree on the screen; the
// handlers are attached by Velluto, and any window may read or write an entry's state here.
#pragma once

#include "app/Settings.h"
#include "view/ControlArray.h"
#include "view/MenuEntry.h"

#include <array>

namespace velluto {

// Numbered entries of one name, First to First + Count - 1, addressed by their own numbers.
template <int First, int Count>
struct MenuArray : ControlArray<MenuEntry, First, Count> {
    // text gives the caption of each number; captions stay empty without it.
    MenuArray(MenuEntry &parent, const char *name, const std::array<std::string_view, Count> &text)
        : ControlArray<MenuEntry, First, Count>([&](int number) {
              return MenuEntry(parent, name, {0, text[static_cast<std::size_t>(number - First)]}, Shortcut{}, number);
          })
    {
    }
};

struct frmMain : Form {
    frmMain() : Form("frmMain") {}
    void Form_Load() override { Raise(OnLoad); }
    bool Form_QueryUnload() override { return OnQueryUnload ? OnQueryUnload() : true; }
    void Form_Unload() override { Raise(OnUnload); }
    void Form_Resize() override { Raise(OnResize); }
    Handler OnLoad;
    Handler OnUnload;
    Handler OnResize;
    std::function<bool()> OnQueryUnload;

    MenuEntry mnuFile{*this, "mnuFile", {2}};
    MenuEntry mnuPcgNuovo64{mnuFile, "mnuPcgNuovo64", {143, " (64)"}, {'N'}};
    MenuEntry mnuPcgNuovo128{mnuFile, "mnuPcgNuovo128", {143, " (128)"}};
    MenuEntry mnuStyNuovo{mnuFile, "mnuStyNuovo", {144}};
    MenuEntry mnuPrfNuovo{mnuFile, "mnuPrfNuovo", {145}};
    MenuEntry mnuSep10{mnuFile, "mnuSep10", {}};
    MenuEntry mnuPcgApri{mnuFile, "mnuPcgApri", {85}, {'A'}};
    MenuEntry mnuStyApri{mnuFile, "mnuStyApri", {86}};
    MenuEntry mnuPrfApri{mnuFile, "mnuPrfApri", {87}};
    MenuEntry mnusep1{mnuFile, "mnusep1", {}};
    MenuEntry mnuChiudi{mnuFile, "mnuChiudi", {8}};
    MenuEntry mnuSep13{mnuFile, "mnuSep13", {}, {}, 1};
    MenuEntry mnuSalva{mnuFile, "mnuSalva", {0, "Salva"}, {'S'}};
    MenuEntry mnuSalvaAs{mnuFile, "mnuSalvaAs", {0, "Salva come"}};
    MenuEntry mnuSep15{mnuFile, "mnuSep15", {}, {}, 2};
    MenuEntry mnuStampa{mnuFile, "mnuStampa", {0, "Stampa"}, {'P'}};
    MenuEntry mnuSep14{mnuFile, "mnuSep14", {}};
    MenuEntry mnuExit{mnuFile, "mnuExit", {7}};
    MenuEntry mnuSep16{mnuFile, "mnuSep16", {}};
    MenuArray<1, 16> mnuRecentFile{mnuFile, "mnuRecentFile", {}};

    MenuEntry mnuModifica{*this, "mnuModifica", {71}};
    MenuEntry mnuIngrandisci{mnuModifica, "mnuIngrandisci", {123}};
    MenuEntry mnuSepM1{mnuModifica, "mnuSepM1", {}};
    MenuArray<0, kRoleCount> mnuMIDIStp{mnuModifica, "mnuMIDIStp", kRoleNames};
    MenuEntry mnuSepM{mnuModifica, "mnuSepM", {}};
    MenuEntry mnuTaglia{mnuModifica, "mnuTaglia", {73}, {'Z'}};
    MenuEntry mnuCopia{mnuModifica, "mnuCopia", {72}, {'C'}};
    MenuEntry mnuIncolla{mnuModifica, "mnuIncolla", {74}, {'V'}};

    MenuEntry mnuView{*this, "mnuView", {3}};
    MenuEntry mnuBanks{mnuView, "mnuBanks", {13}};
    MenuEntry mnuBankA{mnuView, "mnuBankA", {0, "&A: Piano, E.Piano, Mallet/Bell, Accordion"}};
    MenuEntry mnuBankB{mnuView, "mnuBankB", {0, "&B: Organ, Digital Drawbars, Guitar"}};
    MenuEntry mnuBankC{mnuView, "mnuBankC", {0, "&C: String/Vocals, Trumpet/Trombone, Brass"}};
    MenuEntry mnuBankD{mnuView, "mnuBankD", {0, "&D: Sax, Woodwind, Synth 1"}};
    MenuEntry mnuBankE{mnuView, "mnuBankE", {0, "&E: Synth 2, Bass"}};
    MenuEntry mnuBankF{mnuView, "mnuBankF", {0, "&F: Drum/Perc, SFX"}};
    MenuArray<9, 2> mnuPcgUser{mnuView, "mnuPcgUser", {"&G User 1:", "&H User 2:"}};
    MenuEntry mnuSepV2{mnuView, "mnuSepV2", {}};
    MenuEntry mnuBanksSty{mnuView, "mnuBanksSty", {12}};
    MenuArray<1, 2> mnuSty{mnuView, "mnuSty", {"&0 Style 1-8", "&1 Style 9-16"}};
    MenuArray<9, 3> mnuStyUser{mnuView, "mnuStyUser", {"&2 User 1:", "&3 User 2:", "&4 User 3:"}};
    MenuEntry mnuStyUserAll{mnuView, "mnuStyUserAll", {0, "&5 User All"}};
    MenuEntry mnuStyDirectHD19{mnuView, "mnuStyDirectHD19", {0, "&6 Direct HD 1-9"}};
    MenuArray<1, 9> mnuStyDirectHD{mnuStyDirectHD19, "mnuStyDirectHD", {"1", "2", "3", "4", "5", "6", "7", "8", "9"}};
    MenuEntry mnuStyDirectHD123{mnuView, "mnuStyDirectHD123", {0, "&7 Direct HD 123"}};
    MenuEntry mnuStyDirectHD456{mnuView, "mnuStyDirectHD456", {0, "&8 Direct HD 456"}};
    MenuEntry mnuStyDirectHD789{mnuView, "mnuStyDirectHD789", {0, "&9 Direct HD 789"}};
    MenuEntry mnuSepV3{mnuView, "mnuSepV3", {}};
    MenuEntry mnuBanksPrf{mnuView, "mnuBanksPrf", {68}};
    MenuEntry mnuPrfUser120{mnuView, "mnuPrfUser120", {0, "User 1-20"}};
    MenuArray<1, 20> mnuPrfUser{mnuPrfUser120, "mnuPrfUser", {" 1", " 2", " 3", " 4", " 5", " 6", " 7", " 8", " 9", "10",
                                                              "11", "12", "13", "14", "15", "16", "17", "18", "19", "20"}};
    MenuEntry mnuPrfUserAll{mnuView, "mnuPrfUserAll", {0, "User All"}};
    MenuEntry mnuSepV4{mnuView, "mnuSepV4", {}};
    MenuEntry mnuMsgEx{mnuView, "mnuMsgEx", {108}};
    MenuEntry mnuSepV5{mnuView, "mnuSepV5", {}};
    MenuEntry mnuTastiera{mnuView, "mnuTastiera", {106}};

    MenuEntry mnuMidiPlayer{*this, "mnuMidiPlayer", {0, "M&IDI PLAYER"}};

    MenuEntry mnuPreferenze{*this, "mnuPreferenze", {62}};
    MenuEntry mnuLingua{mnuPreferenze, "mnuLingua", {63}};
    MenuEntry mnuItaliano{mnuLingua, "mnuItaliano", {64}};
    MenuEntry mnuInglese{mnuLingua, "mnuInglese", {65}};
    MenuEntry mnuSep41{mnuPreferenze, "mnuSep41", {}};
    MenuEntry mnuMIDIOut{mnuPreferenze, "mnuMIDIOut", {151}};
    MenuArray<0, 8> mnuDevMIDIOut{mnuMIDIOut, "mnuDevMIDIOut", {}};
    MenuEntry mnuMIDIIn{mnuPreferenze, "mnuMIDIIn", {152}};
    MenuArray<0, 4> mnuDevMIDIIn{mnuMIDIIn, "mnuDevMIDIIn", {"(empty)", "(empty)", "(empty)", "(empty)"}};
    MenuEntry mnuMIDIThru{mnuPreferenze, "mnuMIDIThru", {0, "MIDI Thru"}};
    MenuEntry mnuMIDISetup{mnuPreferenze, "mnuMIDISetup", {0, "MIDI setup"}};
    MenuEntry mnuSep44{mnuPreferenze, "mnuSep44", {}};
    MenuEntry mnuVisBarraStato{mnuPreferenze, "mnuVisBarraStato", {103}};

    MenuEntry mnuBloccoNote{*this, "mnuBloccoNote", {128}};

    MenuEntry mnuWindow{*this, "mnuWindow", {4}};
    MenuEntry mnuSovrapponi{mnuWindow, "mnuSovrapponi", {9}};
    MenuEntry mnuAffiancaOrizz{mnuWindow, "mnuAffiancaOrizz", {94}};
    MenuEntry mnuAffiancaVert{mnuWindow, "mnuAffiancaVert", {95}};

    MenuEntry mnuHelp{*this, "mnuHelp", {0, "&?"}};
    MenuEntry mnuGuida{mnuHelp, "mnuGuida", {47}};
    MenuEntry mnuSep51{mnuHelp, "mnuSep51", {}};
    MenuEntry mnuInfo{mnuHelp, "mnuInfo", {30, "Velluto"}};

    // The width of the frame's inside on the screen, in twips, as a face that draws it says; 0 where place tells it.
    // A face that changes it raises Form_Resize.
    int shownWidth = 0;
    Picture Picture1{*this, "Picture1"};
    Label LabelNomeAppl{*this, "LabelNomeAppl"};
    Label LabelData{*this, "LabelData"};
    Label LabelTime{*this, "LabelTime"};
    Timer TimerOrologio{*this, "TimerOrologio", 1000};
};

} // namespace velluto
