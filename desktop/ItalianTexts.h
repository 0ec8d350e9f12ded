// The Italian words for what Qt itself writes: buttons of boxes, the file dialog, title bar menus, editing menus; and the names
// of two widgets that only the desktop has.
#pragma once

#include <QTranslator>

namespace velluto {

class ItalianTexts : public QTranslator {
public:
    using QTranslator::QTranslator;
    [[nodiscard]] QString translate(const char *context, const char *source, const char *disambiguation, int n) const override;
    [[nodiscard]] bool isEmpty() const override { return false; }
};

} // namespace velluto
