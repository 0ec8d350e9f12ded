// Any bytes as the guide and as the notebook: read, shown, jumped about in, typed into, written and read back, with faults of the disk.
// What has been shown and taken once stays as it is from then on, and no place lies outside its text.
#include "fuzz/FuzzProgram.h"

#include "app/Characters.h"
#include "notes/GuideText.h"
#include "notes/NotebookText.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::fuzz;

namespace {

constexpr const char *kPath = "/home/a.txt";
constexpr std::size_t kLongText = 3000; // characters; on longer ones not everything is tried, since that takes its time

void Demand(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

void UseGuide(FuzzedDataProvider &bytes, FileStore &files)
{
    std::string text = "as it was";
    if (ReadGuide(files, kPath, text).Failed()) {
        Demand(text == "as it was");
        return;
    }
    Demand(text.size() <= kGuideRoom);
    const std::string shown = ShownGuide(text);
    Demand(shown.size() > kLongText || ShownGuide(shown) == shown);
    const std::u32string characters = CharactersOfText(shown);
    const auto length = static_cast<int>(characters.size());
    for (int jumps = 0; jumps < (shown.size() > kLongText ? 1 : 8) && bytes.remaining_bytes() > 0; ++jumps) {
        const int target = JumpTarget(characters, bytes.ConsumeIntegralInRange(-1, length + 1));
        Demand(target >= 0 && target < std::max(length, 1));
    }
}

// What a hand puts in: some of the text again, line ends, letters that the notebook does not know.
std::u32string Typed(FuzzedDataProvider &bytes, std::u32string text, std::size_t &at)
{
    at = bytes.ConsumeIntegralInRange<std::size_t>(0, text.size());
    const char32_t letter = bytes.PickValueInArray({U'a', U'\r', U'\n', U'\u20AC', U'\u2603', U'\x81'});
    const auto times = bytes.ConsumeIntegralInRange<std::size_t>(0, 3);
    text.insert(at, times, letter);
    at += times;
    if (bytes.ConsumeIntegralInRange(0, 63) == 0) {
        text.insert(at, U"\r\n");
        text.resize(kNotebookLength + times, U'x');
    }
    return text;
}

void UseNotebook(FuzzedDataProvider &bytes, FileStore &files)
{
    NotebookFile file;
    if (ReadNotebook(files, kPath, file).Failed()) {
        Demand(file.record.empty() && !file.hasRest);
        return;
    }
    Demand(file.record.size() == kNotebookLength);
    const ShownNotebook shown = ShowNotebook(file.record);
    if (!shown.isWhole) {
        return;
    }
    std::u32string text = CharactersOfText(shown.text);
    const bool isLong = text.size() > kLongText;
    Demand(isLong || (TakeText(text, 0).IsWhole() && ShowNotebook(NotebookRecord(text)).text == shown.text));
    for (int steps = 0; steps < (isLong ? 1 : 4) && bytes.remaining_bytes() > 0; ++steps) {
        std::size_t at = 0;
        const std::u32string typed = Typed(bytes, text, at);
        const TakenText taken = TakeText(typed, static_cast<int>(at));
        Demand(taken.text.size() <= kNotebookLength && taken.text.size() <= typed.size());
        Demand(taken.caret >= 0 && static_cast<std::size_t>(taken.caret) <= taken.text.size());
        Demand((isLong || TakeText(taken.text, taken.caret).IsWhole()) && (!taken.IsWhole() || taken.text == typed));
        text = taken.text;
    }
    const std::string record = NotebookRecord(text);
    if (!WriteNotebook(files, kPath, record).Failed()) {
        NotebookFile again;
        Demand(ReadNotebook(files, kPath, again).Failed() || (again.record == record && again.hasRest == file.hasRest));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    FuzzedDataProvider bytes(data, size);
    MemoryFiles files;
    FaultyFiles faulty(files);
    for (int faults = bytes.ConsumeIntegralInRange(-6, 2); faults > 0; --faults) {
        faulty.faults.push_back(AnyFault(bytes, kPath));
    }
    if (bytes.ConsumeIntegralInRange(0, 63) == 0) {
        files.told[kPath] = bytes.PickValueInArray<std::uint64_t>({kNoLength, kGuideRoom + 1});
    }
    const auto times = bytes.ConsumeIntegralInRange<std::size_t>(1, bytes.ConsumeIntegralInRange(0, 31) == 0 ? 800 : 2);
    const bool isGuide = bytes.ConsumeBool();
    const auto text = bytes.ConsumeBytes<std::uint8_t>(bytes.ConsumeIntegralInRange<std::size_t>(0, kLongText / 3));
    for (std::size_t i = 0; i < times && files.files[kPath].size() <= kGuideRoom; ++i) {
        files.files[kPath].insert(files.files[kPath].end(), text.begin(), text.end());
    }
    isGuide ? UseGuide(bytes, faulty) : UseNotebook(bytes, faulty);
    return 0;
}
