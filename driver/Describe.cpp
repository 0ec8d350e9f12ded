#include "driver/Describe.h"

#include "view/FolderControls.h"

namespace velluto::driver {

namespace {

void PutCaption(Json &json, const Control &control)
{
    json["caption"] = ProgramText(control.caption.Get());
}

void PutState(Json &json, const Control &control)
{
    json["enabled"] = control.enabled.Get();
    json["visible"] = control.visible.Get();
}

void PutPlace(Json &json, const Control &control)
{
    json["left"] = control.place.Get().left;
    json["width"] = control.place.Get().width;
}

void PutList(Json &json, const ListBox &list)
{
    Json rows = Json::array();
    Json selected = Json::array();
    for (int row = 0; row < list.ListCount(); ++row) {
        const std::string &bytes = list.Row(row);
        rows.push_back(list.encoding == ListBox::Encoding::Windows1252 ? Utf8FromWindows1252(bytes) : ProgramText(bytes));
        if (list.Selected(row)) {
            selected.push_back(row);
        }
    }
    json["rows"] = std::move(rows);
    json["selected"] = std::move(selected);
    json["current"] = list.ListIndex();
}

void PutCombo(Json &json, const ComboBox &combo)
{
    Json rows = Json::array();
    for (const std::string &row : combo.rows) {
        rows.push_back(ProgramText(row));
    }
    json["rows"] = std::move(rows);
    json["current"] = combo.ListIndex.Get();
}

// The lists that lead to a folder show the path that they have led to.
void PutPath(Json &json, const Control &control)
{
    if (const auto *folders = dynamic_cast<const FolderList *>(&control)) {
        json["text"] = ProgramText(folders->path);
    } else if (const auto *drives = dynamic_cast<const DriveList *>(&control)) {
        json["text"] = ProgramText(drives->Drive());
    }
}

void PutScrollBar(Json &json, const ScrollBar &bar)
{
    json["value"] = bar.value.Get();
    json["min"] = bar.min.Get();
    json["max"] = bar.max.Get();
}

void PutKey(Json &json, const PianoKey &key)
{
    json["color"] = key.color.Get();
    json["checked"] = key.dot.Get();
}

} // namespace

Json DescribeControl(const Control &control)
{
    Json json = Json::object();
    if (dynamic_cast<const Timer *>(&control) != nullptr) {
        json["enabled"] = control.enabled.Get();
        return json;
    }
    if (const auto *entry = dynamic_cast<const MenuEntry *>(&control)) {
        PutCaption(json, control);
        PutState(json, control);
        json["checked"] = entry->checked.Get();
        return json;
    }
    if (const auto *list = dynamic_cast<const ListBox *>(&control)) {
        PutList(json, *list);
    } else if (const auto *combo = dynamic_cast<const ComboBox *>(&control)) {
        PutCombo(json, *combo);
    } else if (const auto *text = dynamic_cast<const TextBox *>(&control)) {
        json["text"] = ProgramText(text->text.Get());
        json["caret"] = text->caret.Get();
    } else if (const auto *bar = dynamic_cast<const ScrollBar *>(&control)) {
        PutScrollBar(json, *bar);
    } else if (const auto *key = dynamic_cast<const PianoKey *>(&control)) {
        PutKey(json, *key);
    } else if (dynamic_cast<const Picture *>(&control) == nullptr && dynamic_cast<const Emblem *>(&control) == nullptr) {
        PutCaption(json, control);
    }
    if (const auto *box = dynamic_cast<const CheckBox *>(&control)) {
        json["checked"] = box->value.Get();
    } else if (const auto *option = dynamic_cast<const OptionButton *>(&control)) {
        json["checked"] = option->value.Get();
    }
    if (const auto *button = dynamic_cast<const Button *>(&control)) {
        json["color"] = button->color.Get();
    }
    PutPath(json, control);
    PutState(json, control);
    PutPlace(json, control);
    return json;
}

Json DescribeControls(const Form &window)
{
    Json json = Json::object();
    for (const Control *control : window.controls()) {
        json[control->FullName()] = DescribeControl(*control);
    }
    return json;
}

Json DescribeMenus(const frmMain &frame)
{
    Json json = Json::object();
    for (const Control *control : frame.controls()) {
        if (dynamic_cast<const MenuEntry *>(control) != nullptr) {
            json[control->FullName()] = DescribeControl(*control);
        }
    }
    return json;
}

Json DescribeWindows(const ChildWindows &children)
{
    Json json = Json::array();
    for (const Form *form : children.All()) {
        json.push_back({{"name", form->FullName()},
                        {"form", form->name()},
                        {"kind", form->Tag.Kind()},
                        {"slot", form->Tag.Slot()},
                        {"caption", ProgramText(form->caption.Get())},
                        {"left", form->Left()},
                        {"top", form->Top()},
                        {"width", form->Width()},
                        {"height", form->Height()},
                        {"state", static_cast<int>(form->windowState.Get())},
                        {"active", form == children.Active()}});
    }
    return json;
}

} // namespace velluto::driver
