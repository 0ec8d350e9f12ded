// A player with compilations on the disk. For the tests of what they are and of what is done to them.
#pragma once

#include "unit/player/PlayerRun.h"

namespace velluto::test {

using namespace std::string_literals;

class CompilationRun : public PlayerRun {
protected:
    // An image with one group: the folder d and these names.
    [[nodiscard]] std::string Image(const Rows &names) const
    {
        std::string image = "\1" + At("d") + "\0"s;
        for (const std::string &name : names) {
            image += name + "\0"s;
        }
        return image + "\xFF";
    }
    // A compilation of files in d, on the disk before the start.
    void Compilation(const std::string &name, const Rows &names)
    {
        for (const std::string &file : names) {
            Song("d/" + file, 50);
        }
        WriteText("c-" + name + ".cmp", Image(names));
    }
    void NewCompilation(const std::string &name)
    {
        Press(form().CommNuovo);
        Do("type frmMIDIPlayer Text2 " + name);
    }
    [[nodiscard]] int ReadsOf(const std::string &path) const
    {
        return static_cast<int>(std::ranges::count(session.files.calls, "read " + path));
    }
};

} // namespace velluto::test
