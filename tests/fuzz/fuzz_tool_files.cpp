// Any bytes as files of all three kinds for the console's program: checked, listed, and told in both languages.
#include "tool/Checking.h"
#include "tool/Contents.h"

#include <cstdlib>

using namespace velluto;
using namespace velluto::tool;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const ImageView image(data, size);
    for (const Kind kind : {Kind::None, Kind::Program, Kind::Style, Kind::Performance}) {
        const std::vector<Finding> found = CheckImage(image, kind);
        for (const Finding &finding : found) {
            if (finding.offset > size || Sentence(finding, {kItalianBase}) == Sentence(finding, {kEnglishBase})) {
                std::abort();
            }
        }
        for (const ItemRow &row : velluto::tool::RowsOf(image, kind)) {
            (void)row.Name();
        }
        // What the program refuses is never without a fault.
        if (found.empty() && !IsInstrumentFile(image)) {
            std::abort();
        }
    }
    return 0;
}
