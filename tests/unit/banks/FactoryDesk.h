// A running program with an open MIDI output and the windows of the factory sounds within reach.
#pragma once

#include "banks/frmBank117.h"
#include "banks/frmSty.h"
#include "edit/EditMenu.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <utility>

namespace velluto::test {

using Sent = std::vector<std::uint32_t>;

inline std::string Blanks(std::size_t count)
{
    return std::string(count, ' ');
}

// The three messages of an address on a 0-based channel.
inline Sent Messages(std::uint32_t ch, std::uint32_t msb, std::uint32_t lsb, std::uint32_t program)
{
    return {msb << 16 | 0xB0 | ch, lsb << 16 | 0x20 << 8 | 0xB0 | ch, program << 8 | 0xC0 | ch};
}

class FactoryDesk : public testing::Test {
protected:
    // A table of records that name themselves: "Prog 003" at MSB 121, LSB 3, program 3 and so on.
    static std::string ProgramRecord(int record)
    {
        const std::string number = std::to_string(record % 128);
        std::string text = "    Prog " + std::to_string(record);
        text.resize(17, ' ');
        return text + "121 " + std::string(3 - number.size(), ' ') + number + ' ' + number + std::string(5 - number.size(), ' ');
    }
    static std::string StyleRecord(int record)
    {
        std::string text = "     -Style " + std::to_string(record);
        text.resize(23, ' ');
        return text;
    }
    void WriteTables() const
    {
        std::string programs;
        for (int record = 1; record <= 745; ++record) {
            programs += ProgramRecord(record);
        }
        std::string styles;
        for (int record = 1; record <= 271; ++record) {
            styles += StyleRecord(record);
        }
        WriteText("Velluto-pcg.txt", programs);
        WriteText("Velluto-sty.txt", styles);
    }
    void WriteText(const std::string &name, const std::string &text) const { WriteBytes(run.At(name), Bytes(text.begin(), text.end())); }
    void Start(TestProgram::Language language = TestProgram::English)
    {
        ASSERT_TRUE(run.Start(language));
        run.Choose(menu.mnuDevMIDIOut[0]);
    }
    frmBank117 &Bank(int kind)
    {
        const std::pair<int, MenuEntry *> entries[] = {{2, &menu.mnuBankA}, {3, &menu.mnuBankB}, {4, &menu.mnuBankC},
                                                       {5, &menu.mnuBankD}, {6, &menu.mnuBankE}, {7, &menu.mnuBankF}};
        for (const auto &[number, entry] : entries) {
            if (number == kind) {
                run.Choose(*entry);
            }
        }
        const auto &window = run.program.banks.BankWindows.at(static_cast<std::size_t>(kind - 2));
        if (!window) {
            throw std::runtime_error("no window of bank " + std::to_string(kind));
        }
        return *window;
    }
    frmSty &Styles(int index)
    {
        run.Choose(menu.mnuSty[index]);
        const auto &window = run.program.banks.StyListWindows.at(static_cast<std::size_t>(index - 1));
        if (!window) {
            throw std::runtime_error("no window of Style list " + std::to_string(index));
        }
        return *window;
    }
    // What a click on the row has sent.
    Sent Click(FactoryForm &window, int row)
    {
        run.midi.sent.clear();
        ListGesture::ClickRow(window.List1, row, Modifier::None);
        return run.midi.sent;
    }
    WindowPlacement &Entry(int number) { return app.settings.PlacementTable.at(static_cast<std::size_t>(number)); }

    TestProgram run;
    Modulo1 &app = run.program.app;
    frmMain &menu = app.frame;
};

} // namespace velluto::test
