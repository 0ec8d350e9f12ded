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

RuntimeError StandinPrinter::FontName(std::string_view name)
{
    const RuntimeError error = Try();
    if (!error.Failed()) {
        fontName = name;
    }
    return error;
}

RuntimeError StandinPrinter::FontSize(int points)
{
    const RuntimeError error = Try();
    if (!error.Failed()) {
        fontSize = points;
    }
    return error;
}

RuntimeError StandinPrinter::FontBold(bool bold)
{
    const RuntimeError error = Try();
    if (!error.Failed()) {
        fontBold = bold;
    }
    return error;
}

RuntimeError StandinPrinter::CurrentX(int place)
{
    const RuntimeError error = Try();
    if (!error.Failed()) {
        x_ = place;
    }
    return error;
}

RuntimeError StandinPrinter::CurrentY(int place)
{
    const RuntimeError error = Try();
    if (!error.Failed()) {
        y_ = place;
    }
    return error;
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
