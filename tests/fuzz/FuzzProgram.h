// A whole program with stand-ins for the machine and files that exist in memory only, and a hand on it that does what
// the fuzzer's bytes say. Used by every fuzz target that needs more than one room.
#pragma once

#include "app/Paths.h"
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

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace velluto::fuzz {

using Bytes = std::vector<std::uint8_t>;

// Clicks every row of every list of the window.
inline void ClickEveryRow(Form &form)
{
    for (Control *control : form.controls()) {
        auto *list = dynamic_cast<ListBox *>(control);
        for (int row = 0; list != nullptr && row < list->ListCount(); ++row) {
            ListGesture::ClickRow(*list, row, Modifier::None);
        }
    }
}

// No message may have a data byte above 127.
inline void CheckSent(const StandinMidi &midi)
{
    for (const std::uint32_t message : midi.sent) {
        if ((message & 0x808000U) != 0) {
            std::abort();
        }
    }
}

constexpr std::uint64_t kNoLength = UINT64_MAX; // of a file that fails when it is asked

// told: the length that the file claims to have, where it is not its own.
class MemoryFile : public RandomAccessFile {
public:
    MemoryFile(Bytes &bytes, std::uint64_t told) : bytes_(bytes), told_(told) {}
    RuntimeError Length(std::uint64_t &length) override
    {
        if (told_ == kNoLength) {
            return {FileError::kDeviceInputOutput};
        }
        length = told_ != 0 ? told_ : bytes_.size();
        return {};
    }
    RuntimeError Read(std::uint64_t offset, std::span<std::uint8_t> buffer, std::size_t &got) override
    {
        if (told_ != 0 && offset == told_ - 1 && !bytes_.empty()) { // of such a file the last byte is there
            got = 1;
            buffer.front() = bytes_.back();
            return {};
        }
        got = offset < bytes_.size() ? std::min<std::size_t>(buffer.size(), bytes_.size() - offset) : 0;
        std::copy_n(bytes_.data() + (got > 0 ? offset : 0), got, buffer.data());
        return {};
    }
    RuntimeError Write(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        if (offset + bytes.size() > bytes_.size()) {
            bytes_.resize(offset + bytes.size());
        }
        std::copy(bytes.begin(), bytes.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(offset));
        return {};
    }

private:
    Bytes &bytes_;
    std::uint64_t told_;
};

// Paths in memory have "/" on every system.
inline std::string InMemory(std::string path)
{
    std::ranges::replace(path, kPathSeparator, '/');
    return path;
}

class MemoryFiles : public FileStore {
public:
    std::map<std::string, Bytes> files;
    std::map<std::string, std::uint64_t> told; // lengths that files claim to have, far beyond what is there

    RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override
    {
        file = std::make_unique<MemoryFile>(files[InMemory(path)], Told(path));
        return {};
    }
    RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) override
    {
        const auto found = files.find(InMemory(path));
        if (found == files.end()) {
            return {FileError::kFileNotFound};
        }
        file = std::make_unique<MemoryFile>(found->second, Told(path));
        return {};
    }
    RuntimeError Delete(const std::string &path) override
    {
        told.erase(InMemory(path));
        return {files.erase(InMemory(path)) == 1 ? 0 : FileError::kFileNotFound};
    }
    std::string CurrentFolder() override { return "/home"; }

private:
    [[nodiscard]] std::uint64_t Told(const std::string &path) const
    {
        const auto found = told.find(InMemory(path));
        return found == told.end() ? 0 : found->second;
    }
};

// A fault that stands for some of the next operations on the path.
inline FileFault AnyFault(FuzzedDataProvider &bytes, const std::string &path)
{
    using Operation = FileFault::Operation;
    return {bytes.PickValueInArray({Operation::Open, Operation::Read, Operation::Write, Operation::Delete, Operation::Any}), path,
            bytes.PickValueInArray({FileError::kOther, FileError::kFileNotFound, FileError::kDeviceInputOutput, FileError::kDiskFull,
                                    FileError::kDiskNotReady, FileError::kPathFileAccess, FileError::kPathNotFound, FileError::kCancelled}),
            bytes.ConsumeIntegralInRange(1, 3)};
}

// One folder of the files in memory is each text before a "/".
class MemoryFolders : public Folders {
public:
    explicit MemoryFolders(MemoryFiles &files) : files_(files) {}
    RuntimeError Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &found) override
    {
        const std::string listed = InMemory(folder);
        const std::string above = listed == "/" ? listed : listed + "/";
        found.clear();
        for (const auto &[path, bytes] : files_.files) {
            const std::string name = path.substr(std::min(above.size(), path.size()));
            if (path.starts_with(above) && name.find('/') == std::string::npos && MatchesPattern(name, pattern)) {
                found.push_back({name, bytes.size()});
            }
        }
        std::ranges::sort(found, ComesBefore, &ListedFile::name);
        return {};
    }
    RuntimeError Subfolders(const std::string & /*folder*/, std::vector<std::string> &names) override
    {
        names = {"else", "home"};
        return {};
    }
    RuntimeError FileLength(const std::string &path, std::uint64_t &length) override
    {
        const auto found = files_.files.find(InMemory(path));
        if (found == files_.files.end()) {
            return {FileError::kFileNotFound};
        }
        length = found->second.size();
        return {};
    }
    std::vector<std::string> Drives() override { return {"/", "/home"}; }

private:
    MemoryFiles &files_;
};

struct FuzzProgram {
    FuzzProgram()
    {
        midi.outs.push_back({"Synth out", {}, false, false, {}});
        midi.ins.push_back({"Keys in", {}, false, false, {}});
    }

    MemoryFiles files;
    StandinMidi midi;
    StandinFace face;
    StandinClock clock;
    StandinPrinter printer;
    StandinSequencer sequencer;
    MemoryFolders folders{files};
    FaultyFiles faulty{files}; // without a fault, but where a target puts some
    FaultyFolders faultyFolders{folders, faulty};
    StandinTicks ticks;
    Velluto program{Ports{faulty, midi, clock, printer, sequencer, faultyFolders, ticks}, face};

    // confirms: in the first run, the choice of the language.
    bool Start(bool confirms = true)
    {
        face.onModal = [confirms](Form &form) { confirms ? (void)Press(*ControlNamed(form, "CommOK")) : form.Unload(); };
        return StartUp(program);
    }
    [[nodiscard]] bool Runs() const { return face.frame != nullptr; }
    void Choose(MenuEntry &entry)
    {
        ChooseMenu(entry);
        program.app.children.Sweep();
    }
    void Open(const std::string &path)
    {
        face.choices.push_back({false, path, 1});
        Choose(program.app.frame.mnuPcgApri);
    }
    // Closes the frame, and gives up what was changed. A program that cannot be left is a fault.
    void Leave()
    {
        constexpr int kMostBoxes = 50;
        faulty.faults.clear();
        for (int tries = 0; Runs() && tries < 20; ++tries) {
            face.answers.assign(kMostBoxes, Box::kNo);
            CloseFrame(program);
            program.app.children.Sweep();
        }
        if (Runs()) {
            std::abort();
        }
    }
    // One thing that a person can do, whatever is there to be done.
    void Act(FuzzedDataProvider &bytes);

private:
    void ActOnMenu(FuzzedDataProvider &bytes);
    void ActOnChild(FuzzedDataProvider &bytes, Form &child);
    static void ActOnControl(FuzzedDataProvider &bytes, Control &control);
};

inline void FuzzProgram::ActOnMenu(FuzzedDataProvider &bytes)
{
    const std::vector<Control *> &all = program.app.frame.controls();
    auto *entry = dynamic_cast<MenuEntry *>(all[bytes.ConsumeIntegralInRange<std::size_t>(0, all.size() - 1)]);
    if (entry != nullptr) {
        Choose(*entry);
    }
}

inline void FuzzProgram::ActOnControl(FuzzedDataProvider &bytes, Control &control)
{
    auto *list = dynamic_cast<ListBox *>(&control);
    if (list == nullptr) {
        Press(control);
    } else if (bytes.ConsumeBool()) {
        PressKey(*list, bytes.PickValueInArray({Key::Delete, Key::Home, Key::End, Key::PageDown, Key::Down, Key::Right}),
                 bytes.PickValueInArray({Modifier::None, Modifier::Ctrl, Modifier::Shift}));
    } else if (list->ListCount() > 0) {
        ListGesture::ClickRow(*list, bytes.ConsumeIntegralInRange(0, list->ListCount() - 1),
                              bytes.PickValueInArray({Modifier::None, Modifier::Ctrl, Modifier::Shift}));
    }
}

inline void FuzzProgram::ActOnChild(FuzzedDataProvider &bytes, Form &child)
{
    ChildWindows &children = program.app.children;
    switch (bytes.ConsumeIntegralInRange(0, 7)) {
    case 0:
        children.Unload(child);
        break;
    case 1:
        children.Resize(child, bytes.ConsumeIntegral<std::int16_t>(), bytes.ConsumeIntegral<std::int16_t>());
        break;
    case 2:
        children.Move(child, bytes.ConsumeIntegral<std::int16_t>(), bytes.ConsumeIntegral<std::int16_t>());
        break;
    case 3:
        children.Minimise(child);
        break;
    default:
        if (!child.controls().empty()) {
            ActOnControl(bytes, *child.controls()[bytes.ConsumeIntegralInRange<std::size_t>(0, child.controls().size() - 1)]);
        }
    }
    children.Sweep();
}

inline void FuzzProgram::Act(FuzzedDataProvider &bytes)
{
    const std::vector<Form *> &children = program.app.children.All();
    switch (bytes.ConsumeIntegralInRange(0, 5)) {
    case 0:
        ActOnMenu(bytes);
        break;
    case 1:
        face.answers.push_back(bytes.PickValueInArray({Box::kYes, Box::kNo, Box::kCancel, Box::kOk}));
        break;
    case 2:
        face.choices.push_back(
            {false, bytes.PickValueInArray({"/home/a.pcg", "/home/b.pcg", "/else/c.PCG", "/d.txt"}), bytes.ConsumeIntegralInRange(0, 5)});
        break;
    default:
        if (!children.empty()) {
            ActOnChild(bytes, *children[bytes.ConsumeIntegralInRange<std::size_t>(0, children.size() - 1)]);
        }
    }
}

} // namespace velluto::fuzz
