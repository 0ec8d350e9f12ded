#include "standin/StandinPrinter.h"

#include <utility>

namespace velluto {

void StandinPrinter::Begin()
{
    page_.clear();
    x_ = 0;
    y_ = 0;
}

RuntimeError StandinPrinter::Try()
{
    if (!successes) {
        return {};
    }
    if (*successes > 0) {
        --*successes;
        return {};
    }
    Begin();
    return {failure};
}

RuntimeError StandinPrinter::Print(std::string_view line)
{
    const RuntimeError error = Try();
    if (!error.Failed()) {
        page_.push_back({x_, y_, std::string(line)});
        x_ = 0;
        y_ += kLineHeight;
    }
    return error;
}

RuntimeError StandinPrinter::EndDoc()
{
    const RuntimeError error = Try();
    if (error.Failed()) {
        return error;
    }
    if (!page_.empty()) {
        pages.push_back(std::move(page_));
    }
    Begin();
    return {};
}

} // namespace velluto
