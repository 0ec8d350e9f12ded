// A whole program with stand-ins for the machine, in a temporary folder of its own that is its current directory.
// Used by the unit tests of every room that needs more than its own record.
#pragma once

#include "platform/machine/MachineFiles.h"
#include "platform/machine/Utf8Path.h"
#include "program/Velluto.h"
#include "standin/FaultyFiles.h"
#include "standin/StandinClock.h"
#include "standin/StandinFace.h"
#include "standin/StandinMidi.h"
#include "standin/StandinPrinter.h"
#include "standin/StandinSequencer.h"
#include "standin/StandinTicks.h"
#include "view/Gestures.h"
#include "view/MenuEntry.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace velluto::test {

using Bytes = std::vector<std::uint8_t>;

// A fresh folder; it goes with all that is in it.
class TempFolder {
public:
    TempFolder()
    {
        std::random_device chance;
        do {
            path_ = std::filesystem::temp_directory_path() / ("velluto-test-" + std::to_string(chance()));
        } while (!std::filesystem::create_directory(path_));
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    [[nodiscard]] std::string Path() const { return Utf8OfPath(path_); }
    [[nodiscard]] std::string At(const std::string &name) const { return Utf8OfPath((path_ / PathOfUtf8(name)).make_preferred()); }

private:
    std::filesystem::path path_;
};

// Files of the machine, seen from a current directory of the test's choice.
class FilesFrom : public FileStore {
public:
    explicit FilesFrom(std::string folder) : folder_(std::move(folder)) {}
    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override { return files_.Open(path, file); }
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override
    {
        return files_.OpenToRead(path, file);
    }
    RuntimeError Delete(const std::string &path) override { return files_.Delete(path); }
    std::string CurrentFolder() override { return folder_; }

private:
    MachineFiles files_;
    std::string folder_;
};

inline Bytes ReadBytes(const std::string &path)
{
    std::ifstream in(PathOfUtf8(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::string &path, const Bytes &bytes)
{
    std::ofstream out(PathOfUtf8(path), std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char *>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

// One run of the program. A second run over the same folder: TestProgram next(first.folder).
struct TestProgram {
    enum Language { Italian = 1, English = 2, Cancel = 0 };

    explicit TestProgram(std::shared_ptr<TempFolder> place = std::make_shared<TempFolder>()) : folder(std::move(place))
    {
        // One device each way, so that a start shows no box. Tests replace them before Start.
        midi.outs.push_back({"Synth out", {}, false, false, {}});
        midi.ins.push_back({"Keys in", {}, false, false, {}});
    }

    std::shared_ptr<TempFolder> folder;
    FilesFrom machine{folder->Path()};
    FaultyFiles files{machine};
    StandinMidi midi;
    StandinFace face;
    StandinClock clock;
    StandinPrinter printer;
    StandinSequencer sequencer;
    MachineFolders disk;
    FaultyFolders folders{disk, files};
    StandinTicks ticks;
    Velluto program{Ports{files, midi, clock, printer, sequencer, folders, ticks}, face};
    int languageQuestions = 0; // how often frmLingua was shown

    // StartUp; the word answers frmLingua where it is shown. False where no frame came up.
    bool Start(Language answer = Italian)
    {
        face.onModal = [this, answer](Form &form) {
            ++languageQuestions;
            if (answer != Cancel) {
                Press(*ControlNamed(form, "Option1", answer - 1));
                Press(*ControlNamed(form, "CommOK"));
            }
        };
        return StartUp(program);
    }
    // The user closes the frame. False where a child refused.
    bool Exit()
    {
        const bool closed = CloseFrame(program);
        program.app.children.Sweep();
        return closed;
    }
    // Drops the entry's menu and chooses it, as a person does. False where it is disabled or hidden.
    bool Choose(MenuEntry &entry)
    {
        const bool chosen = ChooseMenu(entry);
        program.app.children.Sweep();
        return chosen;
    }
    // Closes a child as its own close button does.
    bool Close(Form &form)
    {
        const bool closed = program.app.children.Unload(form);
        program.app.children.Sweep();
        return closed;
    }

    [[nodiscard]] std::string At(const std::string &name) const { return folder->At(name); }
    [[nodiscard]] Bytes Ini() const { return ReadBytes(At("Velluto.ini")); }
};

} // namespace velluto::test
