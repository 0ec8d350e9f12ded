// A window with a list and an image, and a printer without paper: what the tests of the listings stand on.
#pragma once

#include "edit/Printing.h"
#include "unit/files/InstrumentFiles.h"
#include "unit/support/ListWindows.h"
#include "unit/support/MidiLink.h"
#include "unit/support/NativePath.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velluto::test {

using Lines = std::vector<std::string>;

// The whole 84 characters of a line that ends in blanks. Only for ASCII.
inline std::string Line(const std::string &text)
{
    std::string line = text;
    line.resize(84, ' ');
    return line;
}

struct PrintLink : MidiLink {
    FilesState files{app};

    // A window of kind and slot with a file's path, not printed yet.
    struct Window : ListWindow {
        Window(int kind, int slot, const std::string &path = Native("/pa80/Bank.pcg"), const Bytes &image = {}) : ListWindow(kind, slot)
        {
            Tag.SetPath(path);
            Tag.image = ImageOf(image);
        }
        Window &Rows(std::vector<std::string> rows)
        {
            List1.SetRows(std::move(rows));
            return *this;
        }
    };

    // Prints the window and answers the one page. The window is closed again: it may go before the next one comes.
    PrintedPage Page(Form &window)
    {
        app.children.Show(window);
        mnuStampa_Click(files);
        app.children.Unload(window);
        if (printer.pages.size() != 1) {
            ADD_FAILURE() << printer.pages.size() << " pages";
            return {};
        }
        PrintedPage page = printer.pages.front();
        printer.pages.clear();
        return page;
    }
    // The same without the places.
    Lines Texts(Form &window)
    {
        Lines texts;
        for (const PrintedLine &line : Page(window)) {
            texts.push_back(line.text);
        }
        return texts;
    }
    // The heading of a window.
    std::string Heading(int kind, int slot, const std::string &path)
    {
        Window window(kind, slot, path);
        return Texts(window).at(0);
    }
    // What follows the heading and its two empty lines.
    Lines Listing(Form &window)
    {
        Lines texts = Texts(window);
        EXPECT_GE(texts.size(), 3U);
        texts.erase(texts.begin(), texts.begin() + std::min<std::ptrdiff_t>(3, std::ssize(texts)));
        return texts;
    }
};

class PrintingTest : public testing::Test {
protected:
    PrintLink link;
};

} // namespace velluto::test
