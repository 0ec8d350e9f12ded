#include "app/Catalogue.h"
#include "app/SettingsFile.h"
#include "midi/Survey.h"
#include "program/Velluto.h"

namespace velluto {

namespace {

// The companion files are looked for in the current directory, not beside the executable.
RunPaths PathsIn(const std::string &folder)
{
    const auto at = [&folder](std::string_view ending) { return JoinPath(folder, std::string(kProgramName).append(ending)); };
    RunPaths paths;
    paths.AppDir = folder;
    paths.IniPath = at(".ini");
    paths.GuidaPath = at("-GuidaUtente.txt");
    paths.GuidePath = at("-UserGuide.txt");
    paths.NotebookPath = at("-Notebook.txt");
    paths.PcgTablePath = at("-pcg.txt");
    paths.StyTablePath = at("-sty.txt");
    paths.PrfBank1Path = at("-Bank01.prf");
    return paths;
}

} // namespace

bool StartUp(Velluto &program)
{
    Modulo1 &app = program.app;
    app.StartAborted = false;
    app.paths = PathsIn(app.ports.files.CurrentFolder());
    // What a first run begins with stands until the file says otherwise, so a folder that cannot be read does too.
    AssignFactoryBanks(app.settings, app.paths.PrfBank1Path);
    ReadSettings(app);
    if (app.StartAborted) {
        return false;
    }
    app.CurrentOperation = app.messages.Text(TextId::OpeningMidiOut);
    SurveyMidiDevices(program.midi, [&app] { app.frame.Load(); });
    app.frame.Load();
    app.face.FrameShown(app.frame);
    return true;
}

} // namespace velluto
