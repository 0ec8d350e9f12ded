// The printer as the program speaks to it: a font, a place on the page, one line of text at a time, the end of the
// document. Used by the listings of edit/; answered by Qt on the desktop and by a stand-in in the driver and the tests.
#pragma once

#include "platform/RuntimeError.h"

#include <string_view>

namespace velluto {

namespace PrinterError {
inline constexpr int kPrinter = 482;     // the printer is missing or failed
inline constexpr int kCancelled = 32755; // the user was asked where to print, and does not want to any more
} // namespace PrinterError

// A document begins with its first line and ends with EndDoc, or with the first operation that fails: what was printed
// of it is dropped then, and the next line begins another document. Places are twentieths of a point from the upper
// left corner of the paper; a new document begins at 0, 0.
class Printer {
public:
    virtual ~Printer() = default;

    virtual RuntimeError FontName(std::string_view name) = 0;
    virtual RuntimeError FontSize(int points) = 0;
    virtual RuntimeError FontBold(bool bold) = 0;

    [[nodiscard]] virtual int CurrentX() const = 0;
    [[nodiscard]] virtual int CurrentY() const = 0;
    virtual RuntimeError CurrentX(int place) = 0;
    virtual RuntimeError CurrentY(int place) = 0;

    // Prints a line of UTF-8, its upper left corner at CurrentX and CurrentY, each character in one cell of the font.
    // CurrentX becomes 0 and CurrentY grows by the height of a line; an empty line does no more than that.
    virtual RuntimeError Print(std::string_view line) = 0;
    // Hands the document over. Where nothing was printed it does nothing.
    virtual RuntimeError EndDoc() = 0;
};

} // namespace velluto
