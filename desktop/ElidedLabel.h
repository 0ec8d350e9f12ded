// A label that never runs over its edge: what is too long ends in dots and can be read whole in its tool tip.
#pragma once

#include <QLabel>

namespace velluto {

class ElidedLabel : public QLabel {
public:
    explicit ElidedLabel(QWidget *parent) : QLabel(parent) {}
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    bool event(QEvent *event) override;

private:
    // Text that has room for a second line is broken into lines, not cut.
    [[nodiscard]] bool HasManyLines() const;
    [[nodiscard]] QString PlainText() const;
};

} // namespace velluto
