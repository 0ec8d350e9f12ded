// Handling windows as a person would by their titles and edges: to the front, closed, minimised, moved, resized.
#include "driver/Commands.h"

#include "driver/Names.h"

#include <array>

namespace velluto::driver {

namespace {

// A hand on a window's title or edge brings a child to the front, minimised too.
void BringForward(Session &session, Form &window)
{
    if (!IsFrame(session.Program(), window)) {
        session.Program().app.children.Activate(window);
    }
}

Json Activate(Session &session, const Words &words)
{
    BringForward(session, FindWindow(session.Program(), words.front()));
    return Good();
}

Json Close(Session &session, const Words &words)
{
    Form &window = FindWindow(session.Program(), words.front());
    if (IsFrame(session.Program(), window)) {
        return Exit(session, words);
    }
    return Good("closed", session.Program().app.children.Unload(window));
}

template <WindowState State>
Json SetState(Session &session, const Words &words)
{
    Form &window = FindWindow(session.Program(), words.front());
    BringForward(session, window);
    window.windowState = State;
    return Good();
}

constexpr int kFarthest = 1 << 20; // twips, far beyond any screen

Json Move(Session &session, const Words &words)
{
    Form &window = FindWindow(session.Program(), words[0]);
    const int left = ToNumber(words[1], "left", -kFarthest, kFarthest);
    const int top = ToNumber(words[2], "top", -kFarthest, kFarthest);
    BringForward(session, window);
    session.Program().app.children.Move(window, left, top);
    return Good();
}

Json Resize(Session &session, const Words &words)
{
    Form &window = FindWindow(session.Program(), words[0]);
    const int width = ToNumber(words[1], "the width", 0, kFarthest);
    const int height = ToNumber(words[2], "the height", 0, kFarthest);
    BringForward(session, window);
    session.Program().app.children.Resize(window, width, height);
    return Good();
}

constexpr std::array<Command, 7> kCommands = {{
    {"activate", "WINDOW", 1, 1, Activate},
    {"close", "WINDOW", 1, 1, Close},
    {"minimise", "WINDOW", 1, 1, SetState<WindowState::Minimised>},
    {"restore", "WINDOW", 1, 1, SetState<WindowState::Normal>},
    {"maximise", "WINDOW", 1, 1, SetState<WindowState::Maximised>},
    {"move", "WINDOW LEFT TOP", 3, 3, Move},
    {"resize", "WINDOW WIDTH HEIGHT", 3, 3, Resize},
}};

} // namespace

std::span<const Command> WindowCommands()
{
    return kCommands;
}

} // namespace velluto::driver
