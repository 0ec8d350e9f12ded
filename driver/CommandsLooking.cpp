// Looking at what the program shows, has sent and holds. Nothing of the program changes.
#include "driver/Commands.h"

#include "driver/Describe.h"
#include "driver/Names.h"
#include "driver/Sha256.h"
#include "driver/Values.h"

#include <array>
#include <fstream>
#include <utility>

namespace velluto::driver {

namespace {

Json Windows(Session &session, const Words & /*words*/)
{
    const ChildWindows &children = session.Program().app.children;
    Json told = Good();
    told["windows"] = DescribeWindows(children);
    told["childCount"] = children.ChildCount;
    return told;
}

Json Show(Session &session, const Words &words)
{
    const Form &window = FindWindow(session.Program(), words[0]);
    if (words.size() == 1) {
        return Good("controls", DescribeControls(window));
    }
    const Control &control = FindControl(window, words[1]);
    return Good("controls", Json{{control.FullName(), DescribeControl(control)}});
}

Json Menus(Session &session, const Words & /*words*/)
{
    return Good("menus", DescribeMenus(session.Program().app.frame));
}

Json ShowTag(Session &session, const Words &words)
{
    const WindowTag &tag = FindWindow(session.Program(), words.front()).Tag;
    Json told = Good();
    told["prefix"] = Hexadecimal(tag.prefix);
    told["length"] = tag.image.size();
    told["sha256"] = Sha256(AsBytes(tag.image.Text(0, tag.image.size())));
    return told;
}

Json WriteImage(Session &session, const Words &words)
{
    const FileImage &image = FindWindow(session.Program(), words[0]).Tag.image;
    const std::string bytes = image.Text(0, image.size());
    std::ofstream file(session.FullPath(words[1]), std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw BadCommand("cannot write " + words[1]);
    }
    return Good();
}

// The bytes of a packed message as the device reads them: program change and channel pressure have one data byte.
Json MessageBytes(std::uint32_t message)
{
    const auto bytes = ShortMessage(message).bytes;
    return std::vector<int>(bytes.begin(), bytes.begin() + 1 + DataLength(bytes[0]));
}

std::string_view NameOf(ThruEvent::Kind kind)
{
    constexpr std::array<std::string_view, 5> kNames = {"connect", "disconnect", "start", "stop", "message"};
    return kNames.at(static_cast<std::size_t>(kind));
}

// A device number, null where there was none.
Json DeviceNumber(int number)
{
    return number < 0 ? Json() : Json(number);
}

Json DescribeThru(const ThruEvent &event)
{
    Json json = {{"event", NameOf(event.kind)}, {"in", DeviceNumber(event.in)}, {"out", DeviceNumber(event.out)}};
    if (event.kind == ThruEvent::Kind::Message) {
        json["bytes"] = event.bytes;
    }
    return json;
}

Json Sent(Session &session, const Words & /*words*/)
{
    Json messages = Json::array();
    for (const std::uint32_t message : session.midi.sent) {
        messages.push_back(MessageBytes(message));
    }
    Json thru = Json::array();
    for (const ThruEvent &event : session.midi.thru) {
        thru.push_back(DescribeThru(event));
    }
    session.midi.sent.clear();
    session.midi.thru.clear();
    Json told = Good();
    told["messages"] = std::move(messages);
    told["thru"] = std::move(thru);
    return told;
}

Json Boxes(Session &session, const Words & /*words*/)
{
    Json boxes = Json::array();
    for (const ShownBox &box : session.face.boxes) {
        boxes.push_back({{"title", ProgramText(box.title)},
                         {"text", ProgramText(box.text)},
                         {"buttons", box.style == Box::kYesNoCancel ? "yesnocancel" : "ok"},
                         {"answer", WordOfButton(box.answer)}});
    }
    session.face.boxes.clear();
    return Good("boxes", std::move(boxes));
}

Json Dialogs(Session &session, const Words & /*words*/)
{
    Json dialogs = Json::array();
    for (const FileDialog &dialog : session.face.dialogs) {
        dialogs.push_back({{"mode", dialog.mode == FileDialog::Mode::Open ? "open" : "save"},
                           {"title", ProgramText(dialog.title)},
                           {"folder", ProgramText(dialog.folder)},
                           {"filter", ProgramText(dialog.filter)},
                           {"filterIndex", dialog.filterIndex},
                           {"proposed", ProgramText(dialog.proposed)},
                           {"extension", ProgramText(dialog.extension)}});
    }
    session.face.dialogs.clear();
    return Good("dialogs", std::move(dialogs));
}

Json Printed(Session &session, const Words & /*words*/)
{
    Json pages = Json::array();
    for (const PrintedPage &page : std::exchange(session.printer.pages, {})) {
        Json lines = Json::array();
        for (const PrintedLine &line : page) {
            lines.push_back({{"x", line.x}, {"y", line.y}, {"text", line.text}});
        }
        pages.push_back(std::move(lines));
    }
    return Good("pages", std::move(pages));
}

Json Value(Session &session, const Words &words)
{
    return Good("value", ValueOf(session.LastProgram(), words.front()));
}

constexpr std::array<Command, 10> kCommands = {{
    {"windows", "", 0, 0, Windows},
    {"show", "WINDOW [CONTROL]", 1, 2, Show},
    {"menus", "", 0, 0, Menus},
    {"tag", "WINDOW", 1, 1, ShowTag},
    {"image", "WINDOW PATH", 2, 2, WriteImage},
    {"sent", "", 0, 0, Sent},
    {"boxes", "", 0, 0, Boxes},
    {"dialogs", "", 0, 0, Dialogs},
    {"printed", "", 0, 0, Printed},
    {"value", "NAME", 1, 1, Value},
}};

} // namespace

std::span<const Command> LookingCommands()
{
    return kCommands;
}

} // namespace velluto::driver
