// What the windows of the factory sounds share: one list, a place kept in the settings, a role, and no document. Nothing
// can be edited here; a click on an item plays it on the instrument.
#pragma once

#include "banks/Recall.h"
#include "view/Form.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velluto {

class FactoryForm : public Form {
public:
    ListBox List1{*this, "List1"};

    void Form_Load() final;
    void Form_Unload() final;
    void Form_Activate() final;
    void Form_Resize() final;
    void Form_MouseDown(int button) final;

protected:
    // number tells the window from the others of its form, kind is its ViewKind.
    FactoryForm(std::string name, int number, RecallState &recall, int kind);

    [[nodiscard]] bool PlaysCurrentRow() const;
    // Plays it on the instrument, through the channel of the window's role.
    void PlayCurrentRow();
    [[nodiscard]] RecallState &Recall() const { return recall_; }
    [[nodiscard]] Modulo1 &App() const { return recall_.app; }
    [[nodiscard]] int Kind() const { return kind_; }

private:
    // The list's size in widths and heights of the letter "A".
    [[nodiscard]] virtual Size NaturalCells() const = 0;
    [[nodiscard]] virtual std::vector<std::string> Rows() const = 0;
    [[nodiscard]] virtual WindowTag StateText(const WindowPlacement &placement) const = 0;
    // A click on this row passes on to the instrument.
    [[nodiscard]] virtual bool PlaysRow(std::string_view row) const = 0;
    virtual void List1_Click() = 0;
    // The kind that a window which closes takes itself for.
    [[nodiscard]] virtual int KindAtUnload() const = 0;
    // The command of the menu that is off while this window is there.
    [[nodiscard]] virtual MenuEntry &OwnCommand() = 0;
    // Takes the window out of the program's table.
    [[nodiscard]] virtual std::unique_ptr<Form> TakeOut() = 0;

    void PlaceWindow();
    void LayOut();
    void ShowRows();
    [[nodiscard]] WindowPlacement &Entry(int kind) const;

    RecallState &recall_;
    int kind_;
};

} // namespace velluto
