// The error trap of the routines that read and write whole files: an operation that fails is judged, and
// repeated for as long as the judgement says so.
#pragma once

#include "app/Modulo1.h"

#include <string_view>

namespace velluto {

enum class Verdict { GiveUp, Repeat };

// Runs the operation until it succeeds, or until judge(error), which tells the user, gives up. True on success.
template <class Operation, class Judge>
[[nodiscard]] bool Trapped(Operation operation, Judge judge)
{
    for (;;) {
        const RuntimeError error = operation();
        if (!error.Failed()) {
            return true;
        }
        if (judge(error) == Verdict::GiveUp) {
            return false;
        }
    }
}

// The judge of reading and of Save: ClassifyIoError under the title of the operation under way.
struct ClassifyingJudge {
    const Modulo1 &app;

    Verdict operator()(RuntimeError error) const
    {
        constexpr int kRepeat = 2;
        return ClassifyIoError(app.messages, app.CurrentOperation, error) == kRepeat ? Verdict::Repeat : Verdict::GiveUp;
    }
};

// True where the path does not fit the field that every record keeps it in. Says so in a box with that title; nothing
// has been opened or written then, and nothing is cut.
[[nodiscard]] inline bool RefusedAsTooLong(const Modulo1 &app, std::string_view path, std::string_view title)
{
    if (PathText::Fits(path)) {
        return false;
    }
    app.messages.ShowMessage(MessageNo::PathNotFound, title, {});
    return true;
}

} // namespace velluto
