// What the windows of the factory sounds share: one list, a place kept in the settings, a role, and no document. Nothing
// can be edited here; a click on an item plays it on the instrument.
#pragma once

#include "app/ChildForm.h"
#include "banks/Recall.h"

#include <string>
#include <string_view>
#include <vector>

namespace velluto {

class FactoryForm : public ChildForm {
public:
    ListBox List1{*this, "List1"};

protected:
    // number tells the window from the others of its form, kind is its ViewKind, command what shows it. cells is the list's natural size
    // in widths and heights of the letter "A".
    FactoryForm(std::string name, int number, RecallState &recall, int kind, MenuEntry &command, Size cells);

    void UnloadWindow() override;

    [[nodiscard]] bool PlaysCurrentRow() const;
    // Plays it on the instrument, through the channel of the window's role.
    void PlayCurrentRow();
    [[nodiscard]] RecallState &Recall() const { return recall_; }
    [[nodiscard]] int Kind() const { return kind_; }

private:
    bool LoadWindow() final;
    void Resized() final;

    [[nodiscard]] virtual std::vector<std::string> Rows() const = 0;
    [[nodiscard]] virtual WindowTag StateText(const WindowPlacement &placement) const = 0;
    // A click on this row passes on to the instrument.
    [[nodiscard]] virtual bool PlaysRow(std::string_view row) const = 0;
    virtual void List1_Click() = 0;

    void PlaceWindow();
    void LayOut();
    void ShowRows();

    RecallState &recall_;
    int kind_;
    Size cells_;
    WindowPlacement &entry_;
};

} // namespace velluto
