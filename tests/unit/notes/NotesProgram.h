// A running program with its notes, and short ways to what the tests of this room look at.
#pragma once

#include "notes/frmAbout.h"
#include "notes/frmBloccoNote.h"
#include "notes/frmGuida.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace velluto::test {

class NotesTest : public testing::Test {
protected:
    void StartIn(TestProgram::Language language) { ASSERT_TRUE(run.Start(language)); }
    void PutFile(const std::string &name, std::string_view text) { WriteBytes(run.At(name), Bytes(text.begin(), text.end())); }
    [[nodiscard]] std::string File(const std::string &name) const
    {
        const Bytes bytes = ReadBytes(run.At(name));
        return {bytes.begin(), bytes.end()};
    }
    [[nodiscard]] WindowPlacement &Entry(int number)
    {
        return run.program.app.settings.PlacementTable.at(static_cast<std::size_t>(number));
    }
    // Title and text of the one box shown since the last call.
    std::string TheBox()
    {
        EXPECT_EQ(run.face.boxes.size(), 1U);
        const std::string said = run.face.boxes.empty() ? "" : run.face.boxes.front().title + ": " + run.face.boxes.front().text;
        run.face.boxes.clear();
        return said;
    }

    TestProgram run;
    frmMain &menu = run.program.app.frame;
    NotesState &notes = run.program.notes;
    ChildWindows &children = run.program.app.children;
};

inline constexpr const char *kNotebook = "Velluto-Notebook.txt";
inline constexpr const char *kEnglishGuide = "Velluto-UserGuide.txt";
inline constexpr const char *kItalianGuide = "Velluto-GuidaUtente.txt";

} // namespace velluto::test
