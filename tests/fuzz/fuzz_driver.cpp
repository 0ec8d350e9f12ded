// Any lines at all as the driver's input, most of them near to real commands. Each is answered with one line of JSON that
// says ok or names an error, no failure of the program shows through, and nothing ends the driver. Its files lie in a
// folder of its own: no word that it is fed can name another one.
#include "driver/Commands.h"
#include "driver/Words.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <fuzzer/FuzzedDataProvider.h>
#include <iterator>
#include <random>

using namespace velluto::driver;

namespace {

constexpr std::size_t kMostLines = 60;
constexpr std::size_t kLongestText = 40;

// Blanks lie between them.
constexpr std::string_view kWords =
    "frmMain active frmPcgUN(1) frmPcgUN(9) frmPcgUN(11) frmMIDISetup frmMsgEx frmGuida frmBloccoNote frmAbout "
    "Text1 cmdOK mnuGuida mnuBloccoNote mnuInfo Velluto-Notebook.txt frmPcgUN(99) frmTastiera mnuTastiera Key(0) "
    "Key(60) Frame1 HScroll1 VScroll(2) VScroll(10) CheckClickKey CheckHoldNote CommHoldChord HeldNotes List1 "
    "CommUser(9) CommUser(10) CommClose Combo1(1) mnuFile mnuModifica mnuPcgApri mnuSalva mnuSalvaAs mnuChiudi "
    "mnuExit mnuPcgNuovo64 mnuPcgNuovo128 mnuPcgUser(9) mnuMIDISetup mnuMsgEx mnuMIDIThru mnuDevMIDIOut(0) "
    "mnuDevMIDIIn(0) mnuRecentFile(1) mnuMIDIStp(2) out in set open save cancel yes no ok none it en a.pcg b.pcg "
    "Velluto.ini open=4 send=1 caps=1 close=7 read write delete any 0 1 5 63 128 -1 99 2147483647 0xF8 144 60 "
    "Delete PageDown 2005-05-14 12:00:00 ChannelRole LastDir LastChannel ClipValid up down move define refuse rate";

// The program's folder, made once and gone with the process.
class Folder {
public:
    Folder()
    {
        std::random_device chance;
        do {
            path_ = std::filesystem::temp_directory_path() / ("velluto-fuzz-" + std::to_string(chance()));
        } while (!std::filesystem::create_directory(path_));
        std::ifstream sample(VELLUTO_SAMPLE, std::ios::binary);
        sample_.assign(std::istreambuf_iterator<char>(sample), {});
        std::filesystem::current_path(path_);
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::current_path(std::filesystem::temp_directory_path(), ignored);
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    void Refresh() const
    {
        std::error_code ignored;
        for (const auto &entry : std::filesystem::directory_iterator(path_)) {
            std::filesystem::remove_all(entry.path(), ignored);
        }
        std::ofstream(path_ / "a.pcg", std::ios::binary) << sample_;
    }

private:
    std::filesystem::path path_;
    std::string sample_;
};

std::string AnyCommand(FuzzedDataProvider &bytes)
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> all;
        for (const auto commands : {StageCommands(), RunningCommands(), UsingCommands(), LookingCommands()}) {
            for (const Command &command : commands) {
                all.emplace_back(command.name);
            }
        }
        return all;
    }();
    return names[bytes.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)];
}

std::string AnyLine(FuzzedDataProvider &bytes)
{
    static const Words words = [] {
        Words all = SplitWords(kWords);
        all.emplace_back("\"two words\"");
        return all;
    }();
    std::string line = bytes.ConsumeIntegralInRange(0, 15) == 0 ? bytes.ConsumeRandomLengthString(kLongestText) : AnyCommand(bytes);
    for (int more = bytes.ConsumeIntegralInRange(0, 4); more > 0; --more) {
        const bool known = bytes.ConsumeIntegralInRange(0, 15) != 0;
        line += ' ';
        line +=
            known ? words[bytes.ConsumeIntegralInRange<std::size_t>(0, words.size() - 1)] : bytes.ConsumeRandomLengthString(kLongestText);
    }
    std::ranges::replace(line, '/', '_');  // stays in the folder
    std::ranges::replace(line, '\n', ' '); // a line is what lies between two of these
    return line;
}

// Days of the clock are only slow.
bool TakesTooLong(const std::string &line)
{
    constexpr std::size_t kSecondsOnly = 14;
    return line.find("clock") != std::string::npos && line.size() > kSecondsOnly;
}

void Check(bool truth)
{
    if (!truth) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Folder folder;
    folder.Refresh();
    FuzzedDataProvider bytes(data, size);
    Session session;
    for (const char *line : {"device out Synth", "device in Keys", "start en"}) {
        Check(Run(session, line)["ok"] == true);
    }
    for (std::size_t lines = 0; lines < kMostLines && bytes.remaining_bytes() > 0; ++lines) {
        const std::string line = AnyLine(bytes);
        if (TakesTooLong(line)) {
            continue;
        }
        const auto answer = Answer(session, line);
        const std::size_t first = line.find_first_not_of(" \t\r");
        if (!answer) {
            Check(first == std::string::npos || line[first] == '#');
            continue;
        }
        Check(answer->find('\n') == std::string::npos);
        const Json told = Json::parse(*answer);
        Check(told.contains("ok") && told["ok"].is_boolean() && told["ok"] != told.contains("error"));
        Check(answer->find("the program failed") == std::string::npos);
    }
    return 0;
}
