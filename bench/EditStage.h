// What the benchmarks of Cut and Paste share: a program with two Style files open, a full one to take from and one to paste into.
#pragma once

#include "edit/Copy.h"
#include "files/Opening.h"
#include "files/frmStyUN.h"
#include "unit/support/TestProgram.h"

#include <string>
#include <vector>

namespace velluto::bench {

inline constexpr int kStyles = 16;
inline constexpr int kOwnStyles = 2; // a target needs two Styles with STS to be a grouped one; the other fourteen come in

// A file of sixteen Styles to take from, of about so many bytes, and one of two Styles to paste the other fourteen into.
struct EditStage {
    explicit EditStage(std::size_t bytes);

    frmStyUN *Open(const char *name);
    FilesState &Files() { return run.program.files; }
    // Gives a window an image and its rows again, and selects some of them.
    void Bring(frmStyUN &window, const WindowTag &tag, const std::vector<std::string> &rows, int from, int count);
    void CopyFourteen()
    {
        Bring(*source, full, fullRows, kOwnStyles, kStyles - kOwnStyles);
        mnuCopia_Click(Files());
    }
    void BringTarget() { Bring(*target, few, fewRows, kOwnStyles, kStyles - kOwnStyles); }

    test::TestProgram run;
    frmStyUN *source;
    frmStyUN *target;
    WindowTag full;
    WindowTag few;
    std::vector<std::string> fullRows;
    std::vector<std::string> fewRows;
};

} // namespace velluto::bench
