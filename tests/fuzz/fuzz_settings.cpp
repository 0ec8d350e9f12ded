// Any bytes as a settings file, with the bytes that follow as what the user then does. The program starts, lives and ends,
// and what it leaves is a settings file again.
#include "fuzz/FuzzProgram.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr std::size_t kSettingsBytes = 40000;

// The smallest file of the instrument: no items.
const Bytes kEmptyFile = {0x01, 0, 0x01, 0x14, 0,   0,   0,   0,   0x02, 0, 0, 0x18, 0,   0,   0,   0x0C, 0x0B, 0, 0, 0,
                          0,    0, 0,    'K',  'O', 'R', 'F', 0,   0x05, 0, 0, 0x18, 0,   0,   0,   0,    0xFE, 0, 0, 0x18,
                          0,    0, 0,    0x10, 'K', 'B', 'E', 'G', 0,    0, 0, 0x1C, 'K', 'E', 'N', 'D',  0,    0, 0, 0x01};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    FuzzProgram run;
    // The magic is given: without it the file counts as none, and nothing of it is read.
    Bytes settings = {'V', 'e', 'l', 'l', 'u', 't', 'o'};
    const Bytes rest = bytes.ConsumeBytes<std::uint8_t>(bytes.ConsumeIntegralInRange<std::size_t>(0, kSettingsBytes));
    settings.insert(settings.end(), rest.begin(), rest.end());
    run.files.files["/home/Velluto.ini"] = settings;
    run.files.files["/home/a.pcg"] = kEmptyFile;
    if (!run.Start()) {
        return 0;
    }
    while (run.Runs() && bytes.remaining_bytes() > 0) {
        run.Act(bytes);
    }
    run.Leave();
    if (run.files.files["/home/Velluto.ini"].size() != kSettingsBytes) {
        std::abort();
    }
    return 0;
}
