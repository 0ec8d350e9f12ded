// A printer without paper: it keeps the lines of each document, and fails when it is told to. Used by the driver and
// by tests.
#pragma once

#include "platform/Printer.h"

#include <optional>
#include <string>
#include <vector>

namespace velluto {

struct PrintedLine {
    int x = 0; // twentieths of a point
    int y = 0;
    std::string text; // UTF-8
    bool operator==(const PrintedLine &) const = default;
};

using PrintedPage = std::vector<PrintedLine>;

class StandinPrinter : public Printer {
public:
    // What a line adds to CurrentY, whatever the font: close to that of the usual one at 11 points.
    static constexpr int kLineHeight = 250;

    std::vector<PrintedPage> pages; // one for each document that has ended
    std::string fontName;
    int fontSize = 0;
    bool fontBold = false;
    // So many operations succeed; from then on each fails with the number below. None fails where it is not set.
    std::optional<int> successes;
    int failure = PrinterError::kPrinter;

    RuntimeError FontName(std::string_view name) override { return Take(fontName, name); }
    RuntimeError FontSize(int points) override { return Take(fontSize, points); }
    RuntimeError FontBold(bool bold) override { return Take(fontBold, bold); }
    [[nodiscard]] int CurrentX() const override { return x_; }
    [[nodiscard]] int CurrentY() const override { return y_; }
    RuntimeError CurrentX(int place) override { return Take(x_, place); }
    RuntimeError CurrentY(int place) override { return Take(y_, place); }
    RuntimeError Print(std::string_view line) override;
    RuntimeError EndDoc() override;

private:
    // Counts an operation. One that fails drops the document under way.
    RuntimeError Try();
    // An operation that only sets something.
    template <class Kept, class Value>
    RuntimeError Take(Kept &kept, Value value)
    {
        const RuntimeError error = Try();
        if (!error.Failed()) {
            kept = value;
        }
        return error;
    }
    void Begin();

    PrintedPage page_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace velluto
