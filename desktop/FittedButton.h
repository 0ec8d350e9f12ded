// A push button whose words keep clear of its edges: where they are too wide they are written smaller, and so are those of
// the buttons of the same width beside it, so that a row of buttons looks like one.
#pragma once

#include <QPushButton>

namespace velluto {

// A property of a button, true or false: a mark at its lower edge shows it.
inline constexpr char kTiedProperty[] = "tied";

class FittedButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    // The font that the words are drawn with.
    [[nodiscard]] QFont FittedFont() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    // The height, in logical pixels, at which this button's own words fit.
    [[nodiscard]] int FittingPixels() const;
};

} // namespace velluto
