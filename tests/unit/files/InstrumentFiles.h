// Instrument files of all shapes, and a running program to open them in. Used by the tests of the file room.
#pragma once

#include "unit/support/InstrumentImage.h"
#include "unit/support/TestProgram.h"

#include "files/Banks.h"
#include "files/DocumentType.h"
#include "files/Korf.h"
#include "files/NaturalSize.h"
#include "files/Opening.h"
#include "files/ReadInstrumentFile.h"
#include "files/Saving.h"
#include "files/WindowTitle.h"
#include "files/frmPcgUN.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace velluto::test {

// One Program in slot 0 whose body makes the file so long, in bytes (124 or more).
inline Bytes FileOfLength(std::size_t length)
{
    constexpr std::size_t kRest = 36 + 24 + 16 + 4 + 8;
    return InstrumentFile({{"Grand Piano", 0, Bytes(length - kRest, 0xAA)}});
}

// Valid files of all shapes: ascending slots, names padded with zeros, blanks or neither, bodies of any bytes.
inline Bytes RandomFile(std::mt19937 &random)
{
    const auto below = [&random](unsigned bound) { return static_cast<int>(random() % bound); };
    std::vector<Item> items;
    const int places = below(2) == 0 ? 64 : 128;
    const int density = 1 + below(8);
    for (int slot = 0; slot < places; ++slot) {
        if (below(8) >= density) {
            continue;
        }
        Item item;
        item.slot = slot;
        const int length = below(17);
        for (int i = 0; i < length; ++i) {
            item.name.push_back(static_cast<char>(below(256)));
        }
        if (below(2) == 0) {
            item.name.resize(16, ' ');
        }
        item.body.resize(static_cast<std::size_t>(below(400)));
        for (std::uint8_t &byte : item.body) {
            byte = static_cast<std::uint8_t>(below(256));
        }
        items.push_back(item);
    }
    return InstrumentFile(items);
}

inline Bytes BytesOf(const FileImage &image)
{
    const std::string text = image.Text(0, image.size());
    return {text.begin(), text.end()};
}

inline FileImage ImageOf(const Bytes &bytes)
{
    return FileImage(std::span<const std::uint8_t>(bytes));
}

inline bool Exists(const std::string &path)
{
    return std::filesystem::exists(path);
}

// A program that has just started, in Italian unless a test says otherwise.
class FilesTest : public ::testing::Test {
protected:
    explicit FilesTest(TestProgram::Language language = TestProgram::Italian) { started_ = run.Start(language); }
    void SetUp() override { ASSERT_TRUE(started_); }

    std::string Put(const std::string &name, const Bytes &bytes)
    {
        WriteBytes(run.At(name), bytes);
        return run.At(name);
    }
    // Chooses the file through the Open command's dialog.
    void Open(const std::string &path, int filterIndex = 1)
    {
        run.face.choices.push_back({false, path, filterIndex});
        run.Choose(app.frame.mnuPcgApri);
    }
    void SaveAs(const std::string &path)
    {
        run.face.choices.push_back({false, path, 1});
        run.Choose(app.frame.mnuSalvaAs);
    }
    // The window of the slot; a test fails where there is none.
    template <class Window, class Windows>
    static Window &WindowAt(Windows &windows, int place)
    {
        const auto &window = windows.at(static_cast<std::size_t>(place));
        if (!window) {
            throw std::runtime_error("no window in place " + std::to_string(place));
        }
        return dynamic_cast<Window &>(*window);
    }
    frmPcgUN &Window(int slot) { return WindowAt<frmPcgUN>(files.programs.windows, slot); }
    bool HasWindow(int slot) { return files.programs.windows.at(static_cast<std::size_t>(slot)) != nullptr; }
    DocRecord &Record(int slot) { return app.settings.PcgDocTable.at(static_cast<std::size_t>(slot)); }
    std::string RowOf(int slot, int row) { return Window(slot).List1.Row(row); }
    // Makes the next operations of this kind on the path fail.
    void Fail(FileFault::Operation operation, const std::string &path, int number, int times = 1)
    {
        run.files.faults.push_back({operation, path, number, times});
    }
    // How often an operation was tried: "read /folder/name".
    std::ptrdiff_t Calls(const std::string &call) { return std::count(run.files.calls.begin(), run.files.calls.end(), call); }
    // Titles and texts of the boxes shown so far, which are then forgotten.
    std::vector<std::string> Boxes()
    {
        std::vector<std::string> told;
        for (const ShownBox &box : run.face.boxes) {
            told.push_back(box.title + ": " + box.text);
        }
        run.face.boxes.clear();
        return told;
    }
    void MarkModified(Form &window) { window.Tag.Set(TagPosition::Modified, 1); }

    TestProgram run;
    Modulo1 &app = run.program.app;
    FilesState &files = run.program.files;

private:
    bool started_ = false;
};

class EnglishFilesTest : public FilesTest {
protected:
    EnglishFilesTest() : FilesTest(TestProgram::English) {}
};

// Program windows of all slots.
class ProgramWindowTest : public FilesTest {
protected:
    std::string PutItems(const std::string &name, const std::vector<Item> &items) { return Put(name, InstrumentFile(items)); }
    // Opens the file and ties it to the bank of that slot, then opens the bank.
    frmPcgUN &OpenBank(int slot, const std::string &path)
    {
        Open(path);
        Press(Window(1).CommUser[slot]);
        run.Choose(app.frame.mnuPcgUser[slot]);
        return Window(slot);
    }
};

// Open commands.
class OpeningTest : public FilesTest {
protected:
    std::string PutFile(const std::string &name) { return Put(name, FileOfLength(200)); }
    void OpenEight()
    {
        for (int i = 1; i <= 8; ++i) {
            Open(PutFile("file" + std::to_string(i) + ".pcg"));
        }
    }
    std::vector<int> OpenSlots()
    {
        std::vector<int> slots;
        for (const Form *form : app.children.All()) {
            slots.push_back(form->number());
        }
        return slots;
    }
};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

} // namespace velluto::test
