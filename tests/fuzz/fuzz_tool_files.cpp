// Any bytes as files of all three kinds for the console's program: checked, listed, and told in both languages. An input whose first
// byte is beyond ASCII says how a file is made, since random changes seldom leave one that is nearly whole; its name is any text.
#include "fuzz/FuzzImages.h"
#include "fuzz/FuzzProgram.h"
#include "tool/Checking.h"
#include "tool/Contents.h"
#include "tool/Words.h"

#include "app/Characters.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::tool;

namespace {

void Demand(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

void CheckAndList(ImageBlock image)
{
    for (const Kind kind : {Kind::None, Kind::Program, Kind::Style, Kind::Performance}) {
        const std::vector<Finding> found = CheckImage(image, kind);
        for (const Finding &finding : found) {
            Demand(finding.offset <= image.size());
            Demand(Sentence(finding, {kItalianBase}) != Sentence(finding, {kEnglishBase}));
        }
        const std::vector<ItemRow> rows = velluto::tool::RowsOf(image, kind);
        const auto places = static_cast<std::size_t>(PlacesOf(image, kind));
        Demand(kind == Kind::None ? rows.empty() : rows.size() == places || (kind == Kind::Style && rows.size() == 2 * places));
        for (const ItemRow &row : rows) {
            (void)row.Name();
        }
        // What the program refuses is never without a fault.
        Demand(!found.empty() || IsInstrumentFile(image));
    }
}

// Whatever the bytes are, what is printed of them is text, and as text it stays what it is.
void UseWords(const std::string &text)
{
    const std::string valid = ValidUtf8(text);
    Demand(ValidUtf8(valid) == valid && Printable(text).size() == text.size() && Printable(Printable(text)) == Printable(text));
    Demand(ValidUtf8(DrawnText(text)) == DrawnText(text));
    const std::u32string folded = Folded(CharactersOfText(text));
    Demand(Folded(folded) == folded && folded.size() == CharactersOfText(text).size());
    Demand(LanguageOfLocale(text) == kItalianBase || LanguageOfLocale(text) == kEnglishBase);
}

void ReadBack(FuzzedDataProvider &bytes, const fuzz::Bytes &file)
{
    const std::string path = bytes.PickValueInArray({"", "\xC5\xA0\xC5\x92\xC3\x80", "\xC5\xB8\xC5\xBD", "It"}) +
                             bytes.ConsumeRandomLengthString(12) + bytes.PickValueInArray({"", ".pcg", ".STY", ".Prf"});
    UseWords(path);
    fuzz::MemoryFiles files;
    FaultyFiles faulty(files);
    files.files[path] = file;
    if (bytes.ConsumeIntegralInRange(0, 3) == 0) {
        faulty.faults.push_back(fuzz::AnyFault(bytes, bytes.ConsumeBool() ? path : std::string()));
        files.told[path] = bytes.PickValueInArray<std::uint64_t>({0, kLongestFile + 1, fuzz::kNoLength});
    }
    SharedBytes read;
    std::uint64_t length = 0;
    if (ReadInstrument(faulty, path, read, length).Failed()) {
        return;
    }
    Demand(length > kLongestFile ? read.size() <= Korf::kHeadLength : std::ranges::equal(read.View(), file));
    Demand((KindOf(path) == Kind::None) == NameOf(KindOf(path)).empty());
    (void)IsOfLaterInstrument(read.View());
}

// A file that is whole but for a byte or two, or longer or shorter than it should be.
fuzz::Bytes NearlyWhole(FuzzedDataProvider &bytes)
{
    fuzz::Bytes file = fuzz::WholeFile(bytes, bytes.ConsumeIntegralInRange(0, 2));
    for (int pokes = bytes.ConsumeIntegralInRange(0, 3); pokes > 0; --pokes) {
        const auto at = bytes.ConsumeIntegralInRange<std::size_t>(0, bytes.ConsumeBool() ? 36 : file.size() - 1);
        file[bytes.ConsumeBool() ? at : file.size() - 1 - at] =
            bytes.ConsumeBool() ? bytes.ConsumeIntegralInRange<std::uint8_t>(0, 2) : bytes.ConsumeIntegral<std::uint8_t>();
    }
    if (bytes.ConsumeIntegralInRange(0, 7) == 0) {
        file.resize(bytes.ConsumeIntegralInRange<std::size_t>(0, file.size() + 20));
    }
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0 || data[0] < 0x80) {
        CheckAndList(ImageBlock(data, size));
        return 0;
    }
    FuzzedDataProvider bytes(data + 1, size - 1);
    const fuzz::Bytes file = bytes.ConsumeIntegralInRange(0, 3) == 0 ? fuzz::DamagedFile(bytes) : NearlyWhole(bytes);
    CheckAndList(file);
    ReadBack(bytes, file);
    return 0;
}
