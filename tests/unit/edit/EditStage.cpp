#include "unit/edit/EditStage.h"

#include "unit/edit/EditDifference.h"

#include "files/Documents.h"
#include "files/frmPcgUN.h"
#include "files/frmPrfUN.h"

#include <algorithm>
#include <random>

namespace velluto::test {

namespace {

constexpr int kFirstUserBank = 9;

std::string NameOf(std::size_t document, Origin origin)
{
    const char *extension = origin == Origin::ProgramFile ? ".pcg" : origin == Origin::StyleFile ? ".sty" : ".prf";
    return "file" + std::to_string(document) + extension;
}

const char *Word(Action action)
{
    switch (action) {
    case Action::Open:
        return "open";
    case Action::Close:
        return "close";
    case Action::Select:
        return "select";
    case Action::Copy:
        return "Copy";
    case Action::Cut:
        return "Cut";
    case Action::Delete:
        return "Delete key";
    case Action::Paste:
        return "Paste";
    case Action::CopyPastMenu:
        return "Copy past the menu";
    case Action::PastePastMenu:
        return "Paste past the menu";
    case Action::Print:
        return "print";
    case Action::ClickSts:
        return "STS button";
    }
    return "?";
}

// The 0-based rows that a step means, as the list now is.
std::vector<int> RowsMeant(const PlainDocument &plain, const EditStep &step)
{
    const int count = PlainRowCount(plain);
    std::vector<int> starts;
    for (int row = 0; row < count; ++row) {
        const bool occupied = PlainOccupied(plain, row);
        const bool before = step.rows == Rows::EmptyBeforeOccupied;
        const bool wanted = step.rows == Rows::Occupied ? occupied : !before ? !occupied : !occupied && PlainOccupied(plain, row + 1);
        if (wanted || step.rows == Rows::Any || step.rows == Rows::Scattered) {
            starts.push_back(row);
        }
    }
    std::vector<int> rows;
    if (step.rows == Rows::All) {
        for (int row = 0; row < count; ++row) {
            rows.push_back(row);
        }
    } else if (step.rows == Rows::Scattered) {
        std::mt19937 random(step.a);
        std::ranges::copy_if(starts, std::back_inserter(rows), [&](int) { return random() % 4 < step.b % 4; });
    } else if (step.rows != Rows::None && !starts.empty()) {
        const int first = starts[step.a % starts.size()];
        for (int row = first; row < std::min(count, first + static_cast<int>(step.b)); ++row) {
            if (step.rows != Rows::Any && PlainOccupied(plain, row) != PlainOccupied(plain, first)) {
                break;
            }
            rows.push_back(row);
        }
    }
    return rows;
}

} // namespace

EditStage::EditStage(const EditSequence &sequence) : sequence_(sequence), wasOpen_(sequence.documents.size())
{
    run_.Start();
    for (std::size_t i = 0; i < sequence.documents.size(); ++i) {
        const RandomDocument &document = sequence.documents[i];
        if (document.origin <= Origin::PerformanceFile) {
            WriteBytes(run_.At(NameOf(i, document.origin)), document.file);
        }
    }
}

// The file in a window of its own, or in the bank that is tied to it as the settings would tell.
void EditStage::OpenFile(const RandomDocument &document, const std::string &path)
{
    Settings &settings = run_.program.app.settings;
    frmMain &menu = run_.program.app.frame;
    const auto slot = static_cast<std::size_t>(document.bank);
    const auto show = [&](auto &table, MenuEntry &bank, MenuEntry &open, int filter) {
        if (document.bank == 0) {
            run_.face.choices.push_back({false, path, filter});
            run_.Choose(open);
        } else {
            table.at(slot).Path.Set(path);
            bank.enabled = true;
            run_.Choose(bank);
        }
    };
    const int bank = std::max(document.bank, kFirstUserBank);
    if (document.origin == Origin::ProgramFile) {
        show(settings.PcgDocTable, menu.mnuPcgUser[bank], menu.mnuPcgApri, 1);
    } else if (document.origin == Origin::StyleFile) {
        show(settings.StyDocTable, menu.mnuStyUser[bank], menu.mnuStyApri, 2);
    } else {
        menu.mnuPrfUser120.enabled = true;
        show(settings.PrfDocTable, menu.mnuPrfUser[bank - 8], menu.mnuPrfApri, 3);
    }
}

DocumentForm &EditStage::Show(const RandomDocument &document, const std::string &path)
{
    frmMain &menu = run_.program.app.frame;
    switch (document.origin) {
    case Origin::NewProgram64:
        run_.Choose(menu.mnuPcgNuovo64);
        break;
    case Origin::NewProgram128:
        run_.Choose(menu.mnuPcgNuovo128);
        break;
    case Origin::NewStyle:
        run_.Choose(menu.mnuStyNuovo);
        break;
    case Origin::NewPerformance:
        run_.Choose(menu.mnuPrfNuovo);
        break;
    default:
        OpenFile(document, path);
    }
    auto *form = dynamic_cast<DocumentForm *>(run_.program.app.children.Active());
    if (form == nullptr || std::ranges::any_of(pairs_, [&](const auto &pair) { return pair.second.form == form; })) {
        throw std::runtime_error("no window came up for " + path);
    }
    return *form;
}

PlainDocument EditStage::PlainOf(const RandomDocument &document, const PlainOpened &opened)
{
    switch (document.origin) {
    case Origin::StyleFile:
        return PlainStyle(plain_, opened);
    case Origin::PerformanceFile:
        return PlainPerformance(opened);
    case Origin::NewProgram64:
        return PlainNewProgram(64);
    case Origin::NewProgram128:
        return PlainNewProgram(128);
    case Origin::NewStyle:
        return PlainNewStyle(plain_);
    case Origin::NewPerformance:
        return PlainNewPerformance();
    default:
        return PlainProgram(opened);
    }
}

void EditStage::Open(std::size_t number)
{
    const RandomDocument &document = sequence_.documents[number];
    if (pairs_.contains(number) || (document.origin == Origin::StyleFile && wasOpen_[number])) {
        return;
    }
    wasOpen_[number] = true;
    const std::string path = run_.At(NameOf(number, document.origin));
    DocumentForm &form = Show(document, path);
    // Slot, role and recent kind come from the settings, which are not at stake here.
    const PlainOpened opened{form.Tag.Slot(), form.Tag.At(TagPosition::RecentKind), form.Tag.At(TagPosition::Role), path,
                             std::string(document.file.begin(), document.file.end())};
    pairs_.insert({number, Pair{&form, PlainOf(document, opened)}});
}

void EditStage::Close(std::size_t document)
{
    const Pair pair = pairs_.at(document);
    if (pair.plain.At(6) != 0) {
        run_.face.answers.push_back(Box::kNo);
    }
    if (!run_.Close(*pair.form)) {
        throw std::runtime_error("a window did not close");
    }
    PlainUnload(plain_, pair.plain);
    pairs_.erase(document);
}

void EditStage::Select(Pair &pair, const EditStep &step)
{
    const std::vector<int> rows = RowsMeant(pair.plain, step);
    pair.form->List1.ClearSelection();
    pair.plain.selected.assign(pair.plain.rows.size(), false);
    for (const int row : rows) {
        pair.form->List1.Select(row, true);
        pair.plain.selected.at(static_cast<std::size_t>(row)) = true;
        log_.back() += " " + std::to_string(row);
    }
}

void EditStage::Tell(const std::string &stop)
{
    log_.back() += stop.empty() ? "" : " (stops: " + stop + ")";
}

std::optional<std::string> EditStage::Choose(MenuEntry &entry, bool offered)
{
    const bool chosen = run_.Choose(entry);
    log_.back() += chosen ? "" : " (not offered)";
    return chosen == offered ? std::nullopt : std::optional("the entry " + entry.name() + (offered ? " should" : " should not") + " be on");
}

void EditStage::ClickSts(Pair &pair)
{
    auto *style = dynamic_cast<frmStyUN *>(pair.form);
    if (style != nullptr && Press(style->CommSTS)) {
        PlainStsClick(plain_, pair.plain);
    }
}

std::optional<std::string> EditStage::Command(Pair &pair, Action action)
{
    frmMain &menu = run_.program.app.frame;
    PlainDocument &plain = pair.plain;
    const PlainMenu offered = PlainMenuOf(plain_, plain);
    switch (action) {
    case Action::Copy:
        if (offered.copy) {
            PlainCopy(plain_, plain);
        }
        return Choose(menu.mnuCopia, offered.copy);
    case Action::Cut:
        if (offered.cut) {
            Tell(PlainCut(plain_, plain));
        }
        return Choose(menu.mnuTaglia, offered.cut);
    case Action::Paste:
        if (offered.paste) {
            Tell(PlainPaste(plain_, plain));
        }
        return Choose(menu.mnuIncolla, offered.paste);
    case Action::Delete:
        Tell(PlainCut(plain_, plain));
        PressKey(pair.form->List1, Key::Delete);
        return std::nullopt;
    case Action::CopyPastMenu:
        PlainCopy(plain_, plain);
        Raise(menu.mnuCopia.Click);
        return std::nullopt;
    case Action::PastePastMenu:
        if (plain_.clipboard.ClipValid == 0) {
            return std::nullopt;
        }
        Tell(PlainPaste(plain_, plain));
        Raise(menu.mnuIncolla.Click);
        return std::nullopt;
    case Action::Print:
        PlainPrint(plain_, plain);
        run_.printer.pages.clear();
        return Choose(menu.mnuStampa, true);
    default:
        return std::nullopt;
    }
}

std::optional<std::string> EditStage::Do(const EditStep &step)
{
    const bool open = pairs_.contains(step.document);
    if (!open && step.action != Action::Open) {
        return std::nullopt;
    }
    log_.push_back("document " + std::to_string(step.document) + ": " + Word(step.action));
    if (step.action == Action::Open) {
        Open(step.document);
        return Difference();
    }
    if (step.action == Action::Close) {
        Close(step.document);
        return Difference();
    }
    Pair &pair = pairs_.at(step.document);
    run_.program.app.children.Activate(*pair.form);
    std::optional<std::string> difference;
    if (step.action == Action::Select) {
        Select(pair, step);
    } else if (step.action == Action::ClickSts) {
        ClickSts(pair);
    } else {
        difference = Command(pair, step.action);
    }
    return difference ? difference : Difference();
}

std::optional<std::string> EditStage::MenuDifference()
{
    frmMain &menu = run_.program.app.frame;
    const Form *active = run_.program.app.children.Active();
    for (const auto &[number, pair] : pairs_) {
        if (pair.form == active) {
            DropMenu(menu.mnuModifica);
            const PlainMenu wanted = PlainMenuOf(plain_, pair.plain);
            if (menu.mnuCopia.enabled != wanted.copy || menu.mnuTaglia.enabled != wanted.cut || menu.mnuIncolla.enabled != wanted.paste) {
                return "the Edit menu of document " + std::to_string(number) + ": plain says " + (wanted.copy ? "Copy " : "") +
                       (wanted.cut ? "Cut " : "") + (wanted.paste ? "Paste" : "");
            }
        }
    }
    return std::nullopt;
}

std::optional<std::string> EditStage::Difference()
{
    for (const auto &[number, pair] : pairs_) {
        if (auto difference = DocumentDifference("document " + std::to_string(number), *pair.form, pair.plain)) {
            return difference;
        }
    }
    if (auto difference = RunDifference(files_, plain_)) {
        return difference;
    }
    return MenuDifference();
}

} // namespace velluto::test
