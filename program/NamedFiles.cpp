#include "program/NamedFiles.h"

#include "app/Paths.h"
#include "files/Opening.h"

#include <algorithm>
#include <array>

namespace velluto {

namespace {

bool EndsIn(std::string_view path, std::string_view extension)
{
    return path.size() > extension.size() && LowerCase(path.substr(path.size() - extension.size())) == extension;
}

bool IsMidiFile(std::string_view path)
{
    return EndsIn(path, ".mid") || EndsIn(path, ".midi");
}

} // namespace

bool IsFileForUs(std::string_view path)
{
    constexpr std::array<std::string_view, 3> kInstruments = {".pcg", ".sty", ".prf"};
    return IsMidiFile(path) || std::ranges::any_of(kInstruments, [path](std::string_view extension) { return EndsIn(path, extension); });
}

void OpenFileByName(Velluto &program, const std::string &path)
{
    if (IsMidiFile(path)) {
        OpenMidiFile(program.player, path);
    } else {
        OpenNamedFile(program.files, path);
    }
}

} // namespace velluto
