// Running the program: start and end, answers for its dialogs and boxes, and the time that passes.
#include "driver/Commands.h"

#include "driver/Names.h"
#include "view/Gestures.h"

#include <algorithm>
#include <array>

namespace velluto::driver {

namespace {

constexpr std::string_view kLanguageDialog = "frmLingua";

// How the language dialog of a first run is answered.
struct LanguageAnswer {
    std::string_view word;
    int option; // Option1 to press; none: the dialog is closed without a choice
};
constexpr int kNoOption = -1;
constexpr std::array<LanguageAnswer, 4> kLanguageAnswers = {{{"none", kNoOption}, {"it", 0}, {"en", 1}, {"cancel", kNoOption}}};

void AnswerLanguageDialog(const Form &dialog, int option)
{
    Control *choice = option == kNoOption ? nullptr : ControlNamed(dialog, "Option1", option);
    Control *confirm = ControlNamed(dialog, "CommOK");
    if (choice != nullptr && confirm != nullptr && Press(*choice)) {
        (void)Press(*confirm);
    }
}

// Takes the dialog's user away again, however the start ends.
struct UserLeaves {
    StandinFace &face;
    explicit UserLeaves(StandinFace &answering) : face(answering) {}
    UserLeaves(const UserLeaves &) = delete;
    UserLeaves &operator=(const UserLeaves &) = delete;
    ~UserLeaves() { face.onModal = nullptr; }
};

Json Start(Session &session, const Words &words)
{
    const auto *const answer = std::ranges::find(kLanguageAnswers, words.front(), &LanguageAnswer::word);
    if (answer == kLanguageAnswers.end()) {
        throw BadCommand("usage: start none|it|en|cancel");
    }
    if (session.Running()) {
        throw BadCommand("the program is running");
    }
    bool asked = false;
    session.face.onModal = [&asked, answer](const Form &dialog) {
        if (dialog.name() == kLanguageDialog) {
            asked = true;
            AnswerLanguageDialog(dialog, answer->option);
        }
    };
    const UserLeaves atTheEnd(session.face);
    (void)StartUp(session.NewProgram());
    if (asked && answer->word == "none") {
        session.DropProgram();
        throw BadCommand("the language was asked for; the choice was cancelled");
    }
    return Good("running", session.Running());
}

Json Choose(Session &session, const Words &words)
{
    const std::string &mode = words.front();
    FileChoice choice;
    if (mode == "open" && words.size() == 3) {
        choice = {false, session.FullPath(words[1]), ToNumber(words[2], "the filter", 0)};
    } else if (mode == "save" && words.size() == 2) {
        choice = {false, session.FullPath(words[1]), 1};
    } else if (mode != "cancel" || words.size() != 1) {
        throw BadCommand("usage: choose open PATH FILTERINDEX, choose save PATH or choose cancel");
    }
    session.face.choices.push_back(choice);
    return Good();
}

Json QueueAnswer(Session &session, const Words &words)
{
    const int button = ButtonOf(words.front());
    if (button == 0) {
        throw BadCommand("usage: answer yes|no|cancel|ok");
    }
    session.face.answers.push_back(button);
    return Good();
}

Json PassTime(Session &session, const Words &words)
{
    session.PassTime(Timers::Milliseconds{ToNumber(words.front(), "the time", 0)});
    return Good();
}

constexpr std::array<Command, 5> kCommands = {{
    {"start", "none|it|en|cancel", 1, 1, Start},
    {"exit", "", 0, 0, Exit},
    {"choose", "open PATH FILTERINDEX, save PATH or cancel", 1, 3, Choose},
    {"answer", "yes|no|cancel|ok", 1, 1, QueueAnswer},
    {"clock", "MS", 1, 1, PassTime},
}};

} // namespace

Json Exit(Session &session, const Words & /*words*/)
{
    (void)CloseFrame(session.Program());
    return Good("running", session.Running());
}

std::span<const Command> RunningCommands()
{
    return kCommands;
}

} // namespace velluto::driver
