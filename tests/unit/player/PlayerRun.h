// A driver session with the player's window, files of a few bytes that the stand-in sequencer knows, and hands for the window.
// For the tests of the player; one position unit lasts 100 ms.
#pragma once

#include "driver/Commands.h"
#include "player/PlayerWindow.h"
#include "unit/support/NativePath.h"
#include "unit/support/TestProgram.h"
#include "view/Gestures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velluto::test {

using Rows = std::vector<std::string>;

class PlayerRun : public testing::Test {
public:
    PlayerRun(const PlayerRun &) = delete;
    PlayerRun &operator=(const PlayerRun &) = delete;

protected:
    PlayerRun()
    {
        std::filesystem::current_path(folder.Path());
        std::filesystem::create_directory(At("d"));
        Do("device out One");
        Do("device in One");
    }
    ~PlayerRun() override
    {
        if (session.Running()) {
            Do("exit");
        }
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }

    void Do(const std::string &line)
    {
        const driver::Json answer = driver::Run(session, line);
        EXPECT_EQ(answer.at("ok"), true) << line << ": " << driver::OneLine(answer);
    }
    [[nodiscard]] std::string At(const std::string &name) const { return folder.At(name); }
    // A file of so many bytes that plays for so many units; 0 units: the sequencer does not know it.
    void Song(const std::string &path, int length, std::size_t bytes = 3)
    {
        std::filesystem::create_directories(std::filesystem::path(At(path)).parent_path());
        WriteBytes(At(path), Bytes(bytes, 0));
        if (length > 0) {
            session.sequencer.songs[At(path)] = {length, 0, {}};
        }
    }
    void WriteText(const std::string &path, const std::string &text) const { WriteBytes(At(path), Bytes(text.begin(), text.end())); }
    [[nodiscard]] std::string ReadText(const std::string &path) const
    {
        const Bytes bytes = ReadBytes(At(path));
        return {bytes.begin(), bytes.end()};
    }

    // The program with its settings as a run before would have left them, and the player open.
    void Start()
    {
        if (!session.Running()) {
            Do(std::filesystem::exists(At("Velluto.ini")) ? "start none" : "start en");
        }
        Do("menu mnuMidiPlayer");
    }
    // The same with the file panel open on the folder d.
    void StartWithPanel()
    {
        Start();
        Press(form().CommSel);
        Do("set frmMIDIPlayer DirMidiSel " + At("d"));
    }
    [[nodiscard]] frmMIDIPlayer &form() { return *session.Program().player.window; }
    [[nodiscard]] PlayerState &state() { return session.Program().player; }
    [[nodiscard]] Settings &settings() { return session.Program().app.settings; }
    [[nodiscard]] MMControl &device() { return form().MMControl1; }

    void Press(const Control &control) { Do("press frmMIDIPlayer " + control.FullName()); }
    void Transport(int button) { Press(form().MCIPuls[button]); }
    void Click(const ListBox &list, int row) { Do("click frmMIDIPlayer " + list.FullName() + " " + std::to_string(row)); }
    void CtrlClick(const ListBox &list, int row) { Do("ctrlclick frmMIDIPlayer " + list.FullName() + " " + std::to_string(row)); }
    void ShiftClick(const ListBox &list, int row) { Do("shiftclick frmMIDIPlayer " + list.FullName() + " " + std::to_string(row)); }
    void DoubleClick(const ListBox &list, int row) { Do("dblclick frmMIDIPlayer " + list.FullName() + " " + std::to_string(row)); }
    void Set(const ScrollBar &bar, int value) { Do("set frmMIDIPlayer " + bar.FullName() + " " + std::to_string(value)); }
    void Drag(const ScrollBar &bar, int value) { Do("drag frmMIDIPlayer " + bar.FullName() + " " + std::to_string(value)); }
    void Clock(int milliseconds) { Do("clock " + std::to_string(milliseconds)); }

    // Which of the seven buttons are on, as in "1110000".
    [[nodiscard]] std::string Buttons()
    {
        std::string on;
        for (const Button &button : form().MCIPuls) {
            on += button.enabled ? '1' : '0';
        }
        return on;
    }
    [[nodiscard]] static std::vector<int> Selected(const ListBox &list)
    {
        std::vector<int> rows;
        for (int row = 0; row < list.ListCount(); ++row) {
            if (list.Selected(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }

    TempFolder folder;
    driver::Session session;
};

} // namespace velluto::test
