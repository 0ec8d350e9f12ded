#include "banks/frmBank117.h"

#include "app/RecentFiles.h"
#include "banks/FactoryRows.h"
#include "files/Saving.h"

#include <algorithm>
#include <array>

namespace velluto {

namespace {

constexpr int kColumns = 5;
constexpr Size kCells{101, 32}; // 31 rows to a column and a line of margin

constexpr int kTitleLength = 45; // in the state text, behind its 20 zero characters

// In the order of the kinds, from 2 on.
constexpr std::array<MenuEntry frmMain::*, 6> kCommands{&frmMain::mnuBankA, &frmMain::mnuBankB, &frmMain::mnuBankC,
                                                        &frmMain::mnuBankD, &frmMain::mnuBankE, &frmMain::mnuBankF};

// A menu caption as a title: without the mark of its access key, and with "&" for every "/".
std::string TitleOf(std::string_view caption)
{
    caption.remove_prefix(std::min(caption.find_first_not_of(' '), caption.size()));
    std::string title(caption.substr(std::min<std::size_t>(1, caption.size())));
    std::ranges::replace(title, '/', '&');
    return title;
}

} // namespace

MenuEntry &FactoryBankEntry(frmMain &menu, int kind)
{
    return menu.*kCommands.at(static_cast<std::size_t>(kind - ViewKind::BankA));
}

frmBank117::frmBank117(RecallState &recall, int kind)
    : FactoryForm("frmBank117", kind, recall, kind, FactoryBankEntry(recall.app.frame, kind), kCells)
{
    List1.columns = kColumns;
}

std::vector<std::string> frmBank117::Rows() const
{
    return FactoryProgramRows(Recall().tables, Kind());
}

WindowTag frmBank117::StateText(const WindowPlacement &placement) const
{
    WindowTag tag = ToolTag(Kind());
    tag.prefix.append(kTitleLength, ' ');
    tag.Put(TagPosition::Path, TitleOf(FactoryBankEntry(app.frame, Kind()).caption.Get()));
    tag.Set(TagPosition::Role, placement.Role);
    return tag;
}

// Items begin with their number, headings with a letter or a blank.
bool frmBank117::PlaysRow(std::string_view row) const
{
    return !row.empty() && row.front() >= '0' && row.front() <= '9';
}

void frmBank117::List1_Click()
{
    if (PlaysCurrentRow()) {
        PlayCurrentRow();
    }
}

// Nothing marks a bank as edited as yet, so that it closes at once.
bool frmBank117::Form_QueryUnload()
{
    return Tag.At(TagPosition::ProgramEdited) != 1 || SaveBeforeClosing();
}

// False where the window stays. Only Cancel ends a program exit in progress.
bool frmBank117::SaveBeforeClosing()
{
    const std::string name = Tag.Path();
    const std::string title = "File Program - " + name + ".pcg";
    const int answer = app.messages.AskSave(SaveQuestion::FileChanged, title);
    if (answer == Box::kNo) {
        Tag.Set(TagPosition::ProgramEdited, 0);
        return true;
    }
    if (answer != Box::kYes) {
        app.children.ClosingAll = false;
        return false;
    }
    const bool untitled = Tag.At(TagPosition::Untitled) == 1;
    const int result = untitled ? SaveDocumentAs(Recall().files, Tag) : SaveDocument(Recall().files, Tag);
    if (result != 0) {
        return false;
    }
    if (untitled) {
        AddRecent(app, name, static_cast<std::uint8_t>(Tag.At(TagPosition::RecentKind)));
    }
    return true;
}

void frmBank117::UnloadWindow()
{
    app.ViewKind = Kind();
    FactoryForm::UnloadWindow();
}

} // namespace velluto
