// Using what windows hold as a person would: menus, mouse and keys. Whoever touches a child window brings it to the front
// first.
#include "driver/Commands.h"

#include "app/Characters.h"
#include "driver/Names.h"
#include "view/FolderControls.h"
#include "view/Gestures.h"

#include <algorithm>
#include <array>

namespace velluto::driver {

namespace {

// The window under the pointer, brought to the front.
Form &Touch(Session &session, std::string_view name)
{
    Velluto &program = session.Program();
    Form &window = FindWindow(program, name);
    if (!IsFrame(program, window)) {
        if (window.windowState == WindowState::Minimised) {
            throw BadCommand(window.FullName() + " is minimised");
        }
        program.app.children.Activate(window);
    }
    return window;
}

// The control that a hand is about to reach for. Looks only, so that a refusal changes nothing.
Control &Reach(Session &session, std::string_view windowName, std::string_view controlName)
{
    const Form &window = FindWindow(session.Program(), windowName);
    Control &control = FindControl(window, controlName);
    if (!control.visible) {
        throw BadCommand(control.FullName() + " is hidden");
    }
    if (!control.enabled) {
        throw BadCommand(control.FullName() + " is disabled");
    }
    if (dynamic_cast<MenuEntry *>(&control) != nullptr) {
        throw BadCommand(control.FullName() + " is a menu entry: choose it with menu");
    }
    return control;
}

Json ChooseEntry(Session &session, const Words &words)
{
    MenuEntry &entry = FindEntry(session.Program(), words.front());
    return Good("chosen", ChooseMenu(entry));
}

Json Drop(Session &session, const Words &words)
{
    MenuEntry &menu = FindEntry(session.Program(), words.front());
    if (menu.parent() != nullptr || menu.children().empty()) {
        throw BadCommand(words.front() + " is no menu of the menu bar");
    }
    if (!DropMenu(menu)) {
        throw BadCommand(words.front() + " is disabled or hidden");
    }
    return Good();
}

Json PopUp(Session &session, const Words &words)
{
    Control *control = words.size() > 1 ? &Reach(session, words[0], words[1]) : nullptr;
    Form &window = Touch(session, words[0]);
    if (control != nullptr) {
        Raise(control->MouseDown, MouseButton::Right);
        if (const auto *key = dynamic_cast<PianoKey *>(control)) {
            Raise(key->MouseUp, MouseButton::Right);
        }
    } else {
        window.Form_MouseDown(MouseButton::Right);
    }
    Json told = Good();
    const std::vector<MenuEntry *> &shown = session.face.popUps;
    told["menu"] = shown.empty() ? Json() : Json(shown.back()->FullName());
    return told;
}

// The list and the row that the words WINDOW LIST ROW name, with the window brought to the front.
struct RowUnderMouse {
    ListBox &list;
    int row;
};

RowUnderMouse PointAtRow(Session &session, const Words &words)
{
    auto &list = As<ListBox>(Reach(session, words[0], words[1]), "a list");
    if (list.ListCount() == 0) {
        throw BadCommand(list.FullName() + " has no rows");
    }
    const int row = ToNumber(words[2], "the row", 0, list.ListCount() - 1);
    Touch(session, words[0]);
    return {list, row};
}

template <Modifier Keys>
Json Click(Session &session, const Words &words)
{
    const auto [list, row] = PointAtRow(session, words);
    ListGesture::ClickRow(list, row, Keys);
    return Good();
}

Json DoubleClick(Session &session, const Words &words)
{
    if (words.size() == 3) {
        const auto [list, row] = PointAtRow(session, words);
        ListGesture::DoubleClickRow(list, row);
        return Good();
    }
    Control &control = Reach(session, words[0], words[1]);
    const auto *text = dynamic_cast<TextBox *>(&control);
    const auto *label = dynamic_cast<Label *>(&control);
    if (text == nullptr && label == nullptr) {
        throw BadCommand(control.FullName() + " needs a row or is nothing to double-click at");
    }
    Touch(session, words[0]);
    Raise(text != nullptr ? text->DblClick : label->DblClick);
    return Good();
}

struct KeyName {
    std::string_view name;
    int key;
};
constexpr std::array<KeyName, 10> kKeys = {{{"Delete", Key::Delete},
                                            {"PageDown", Key::PageDown},
                                            {"PageUp", Key::PageUp},
                                            {"Up", Key::Up},
                                            {"Down", Key::Down},
                                            {"Left", Key::Left},
                                            {"Right", Key::Right},
                                            {"Home", Key::Home},
                                            {"End", Key::End},
                                            {"Insert", Key::Insert}}};

Json PressNamedKey(Session &session, const Words &words)
{
    Control &control = Reach(session, words[0], words[1]);
    const auto *const found = std::ranges::find(kKeys, words[2], &KeyName::name);
    if (found == kKeys.end()) {
        throw BadCommand("unknown key " + words[2]);
    }
    if (dynamic_cast<ListBox *>(&control) == nullptr && dynamic_cast<TextBox *>(&control) == nullptr) {
        throw BadCommand(control.FullName() + " takes no keys");
    }
    Touch(session, words[0]);
    (void)PressKey(control, found->key);
    return Good();
}

Json PressControl(Session &session, const Words &words)
{
    Control &control = Reach(session, words[0], words[1]);
    const bool pressable = dynamic_cast<Button *>(&control) != nullptr || dynamic_cast<CheckBox *>(&control) != nullptr ||
                           dynamic_cast<OptionButton *>(&control) != nullptr;
    if (!pressable) {
        throw BadCommand(control.FullName() + " cannot be pressed");
    }
    Touch(session, words[0]);
    (void)Press(control);
    return Good();
}

// Characters of a UTF-8 text.
int CharactersOf(std::string_view text)
{
    return static_cast<int>(std::ranges::count_if(text, [](char c) { return !IsContinuationByte(c); }));
}

Json Type(Session &session, const Words &words)
{
    auto &box = As<TextBox>(Reach(session, words[0], words[1]), "a text box");
    if (box.readOnly) {
        throw BadCommand(box.FullName() + " is read-only");
    }
    if (!IsUtf8(words[2])) {
        throw BadCommand("the text is not UTF-8");
    }
    Touch(session, words[0]);
    box.caret = CharactersOf(words[2]);
    box.text = words[2];
    return Good();
}

Json PutCaret(Session &session, const Words &words)
{
    auto &box = As<TextBox>(Reach(session, words[0], words[1]), "a text box");
    const int position = ToNumber(words[2], "the position", 0, CharactersOf(box.text.Get()));
    Touch(session, words[0]);
    box.caret = position;
    return Good();
}

// The place on a slider that VALUE names, checked before anything is touched.
int PlaceOn(const ScrollBar &bar, const std::string &word)
{
    return ToNumber(word, "the value", std::min(bar.min.Get(), bar.max.Get()), std::max(bar.min.Get(), bar.max.Get()));
}

// A folder that is no drive yet is taken for one that has just been mounted.
void ChooseDrive(Session &session, const Words &words, DriveList &drives)
{
    const std::string path = session.FullPath(words[2]);
    std::vector<std::string> paths = drives.rows;
    if (std::ranges::find(paths, path) == paths.end()) {
        std::vector<std::string> inside;
        if (session.folders.Subfolders(path, inside).Failed()) {
            throw BadCommand("no drive " + words[2]);
        }
        paths.push_back(path);
        drives.SetDrives(paths);
    }
    Touch(session, words[0]);
    drives.Choose(static_cast<int>(std::ranges::find(paths, path) - paths.begin()));
}

Json SetValue(Session &session, const Words &words)
{
    Control &control = Reach(session, words[0], words[1]);
    if (auto *bar = dynamic_cast<ScrollBar *>(&control)) {
        const int value = PlaceOn(*bar, words[2]);
        Touch(session, words[0]);
        ScrollGesture::MoveTo(*bar, value);
        return Good();
    }
    if (auto *folders = dynamic_cast<FolderList *>(&control)) {
        Touch(session, words[0]);
        folders->Open(session.FullPath(words[2]));
        return Good();
    }
    if (auto *drives = dynamic_cast<DriveList *>(&control)) {
        ChooseDrive(session, words, *drives);
        return Good();
    }
    auto &combo = As<ComboBox>(control, "a combo box, a slider or a scroll bar");
    const int row = ToNumber(words[2], "the row", 0, static_cast<int>(combo.rows.size()) - 1);
    Touch(session, words[0]);
    combo.ListIndex = row;
    return Good();
}

Json Drag(Session &session, const Words &words)
{
    auto &bar = As<ScrollBar>(Reach(session, words[0], words[1]), "a slider or a scroll bar");
    const int value = PlaceOn(bar, words[2]);
    Touch(session, words[0]);
    ScrollGesture::DragTo(bar, value);
    return Good();
}

enum class PointerEvent { Down, Up, Move };

void PointAt(Control &control, PointerEvent event, int y)
{
    const auto *key = dynamic_cast<PianoKey *>(&control);
    const auto *frame = dynamic_cast<Frame *>(&control);
    if (event == PointerEvent::Down) {
        Raise(control.MouseDown, MouseButton::Left);
    } else if (event == PointerEvent::Up && key != nullptr) {
        Raise(key->MouseUp, MouseButton::Left);
    } else if (event == PointerEvent::Move && key != nullptr) {
        Raise(key->MouseMove, y);
    } else if (event == PointerEvent::Move && frame != nullptr) {
        Raise(frame->MouseMove);
    }
}

Json MovePointer(Session &session, const Words &words)
{
    constexpr std::array kEvents = {std::string_view("down"), std::string_view("up"), std::string_view("move")};
    const auto *const event = std::ranges::find(kEvents, words[2]);
    if (event == kEvents.end()) {
        throw BadCommand("usage: pointer WINDOW CONTROL down|up|move [Y]");
    }
    constexpr int kFarAway = 1 << 15; // twips, above or below any control
    const int y = words.size() > 3 ? ToNumber(words[3], "Y", -kFarAway, kFarAway) : 0;
    Control &control = Reach(session, words[0], words[1]);
    if (dynamic_cast<PianoKey *>(&control) == nullptr && dynamic_cast<Frame *>(&control) == nullptr) {
        RefuseKind(control, "a piano key or a frame");
    }
    Touch(session, words[0]);
    PointAt(control, static_cast<PointerEvent>(event - kEvents.begin()), y);
    return Good();
}

constexpr std::array<Command, 14> kCommands = {{
    {"menu", "ENTRY", 1, 1, ChooseEntry},
    {"drop", "MENU", 1, 1, Drop},
    {"popup", "WINDOW [CONTROL]", 1, 2, PopUp},
    {"click", "WINDOW LIST ROW", 3, 3, Click<Modifier::None>},
    {"ctrlclick", "WINDOW LIST ROW", 3, 3, Click<Modifier::Ctrl>},
    {"shiftclick", "WINDOW LIST ROW", 3, 3, Click<Modifier::Shift>},
    {"dblclick", "WINDOW LIST ROW or WINDOW CONTROL", 2, 3, DoubleClick},
    {"key", "WINDOW CONTROL KEYNAME", 3, 3, PressNamedKey},
    {"press", "WINDOW CONTROL", 2, 2, PressControl},
    {"type", "WINDOW CONTROL TEXT", 3, 3, Type},
    {"caret", "WINDOW CONTROL POSITION", 3, 3, PutCaret},
    {"set", "WINDOW CONTROL VALUE", 3, 3, SetValue},
    {"drag", "WINDOW CONTROL VALUE", 3, 3, Drag},
    {"pointer", "WINDOW CONTROL down|up|move [Y]", 3, 4, MovePointer},
}};

} // namespace

std::span<const Command> UsingCommands()
{
    return kCommands;
}

} // namespace velluto::driver
