#include "desktop/Contrast.h"

#include "desktop/ListView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QStyleOption>

#include <algorithm>
#include <cmath>
#include <map>

namespace velluto::test {

namespace {

double Luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

// Along a line that crosses an edge from outside: of the pixel that stands out most from the first.
double Crossing(const QImage &image, const QPoint &outside, const QPoint &step)
{
    constexpr int kDepth = 6; // pixels
    double most = 1;
    for (int i = 1; i <= kDepth; ++i) {
        const QPoint at = outside + step * i;
        if (image.rect().contains(at)) {
            most = std::max(most, ContrastOf(image.pixel(outside), image.pixel(at)));
        }
    }
    return most;
}

class Finder {
public:
    explicit Finder(QWidget &window) : window_(window), image_(window.grab().toImage().convertToFormat(QImage::Format_RGB32)) {}

    QStringList Find()
    {
        LookAtTitles(window_);
        for (QWidget *widget : window_.findChildren<QWidget *>()) {
            if (widget->isVisible() && widget->isEnabled() && widget->visibleRegion().boundingRect() == widget->rect()) {
                LookAt(*widget);
            }
        }
        return faint_;
    }

private:
    QRect Place(const QWidget &widget, const QRect &part) const { return {widget.mapTo(&window_, part.topLeft()), part.size()}; }
    QRect Place(const QWidget &widget) const { return Place(widget, widget.rect()); }
    void Note(const QWidget &widget, const char *what, double contrast, double least)
    {
        if (contrast < least) {
            faint_ << QStringLiteral("%1 %2: %3").arg(widget.objectName(), QLatin1String(what)).arg(contrast, 0, 'f', 2);
        }
    }
    void Text(const QWidget &widget, const QRect &part)
    {
        constexpr int kEdge = 3; // of the control's own lines, pixels
        Note(widget, "text", TextContrast(image_, Place(widget, part.adjusted(kEdge, kEdge, -kEdge, -kEdge))), kTextContrast);
    }
    void Edge(const QWidget &widget, const QRect &part)
    {
        Note(widget, "edge", EdgeContrast(image_, Place(widget, part), Place(*widget.parentWidget())), kLineContrast);
    }

    void LookAtTitles(const QWidget &widget)
    {
        if (qobject_cast<const QMdiSubWindow *>(&widget) != nullptr) {
            constexpr int kTitleHeight = 24;
            constexpr int kBeside = 30; // the icon
            Text(widget, QRect(kBeside, 3, widget.width() / 2, kTitleHeight));
        }
    }
    void LookAt(const QWidget &widget)
    {
        LookAtTitles(widget);
        if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
            if (!label->text().trimmed().isEmpty()) {
                Text(widget, widget.rect().adjusted(-3, -3, 3, 3));
            }
        } else if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
            LookAtButton(*button);
        } else if (const auto *slider = qobject_cast<const QSlider *>(&widget)) {
            LookAtSlider(*slider);
        } else if (const auto *bar = qobject_cast<const QScrollBar *>(&widget)) {
            LookAtScrollBar(*bar);
        } else if (const auto *menus = qobject_cast<const QMenuBar *>(&widget)) {
            LookAtMenus(*menus);
        } else {
            LookAtField(widget);
        }
    }
    void LookAtButton(const QAbstractButton &button)
    {
        const bool box = qobject_cast<const QCheckBox *>(&button) != nullptr;
        const bool option = qobject_cast<const QRadioButton *>(&button) != nullptr;
        Text(button, button.rect());
        if (box || option) {
            QStyleOptionButton drawn;
            drawn.initFrom(&button);
            const auto part = box ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator;
            Edge(button, button.style()->subElementRect(part, &drawn, &button));
        } else if (qobject_cast<const QPushButton *>(&button) != nullptr) {
            Edge(button, button.rect());
        }
    }
    void LookAtSlider(const QSlider &slider)
    {
        struct Asked : QSlider {
            using QSlider::initStyleOption;
        };
        QStyleOptionSlider option;
        (slider.*&Asked::initStyleOption)(&option);
        const QRect handle = slider.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider);
        const bool level = slider.orientation() == Qt::Horizontal;
        const QRect handleAt = Place(slider, handle);
        const QPoint across = level ? QPoint(0, 1) : QPoint(1, 0);
        const auto side = [&](const QPoint &outside, const QPoint &step) {
            Note(slider, "handle", Crossing(image_, outside, step), kLineContrast);
        };
        side(QPoint(handleAt.center()) - across * (level ? handleAt.height() / 2 + 1 : handleAt.width() / 2 + 1), across);
        // The track, where the handle is not.
        const QRect whole = Place(slider);
        const int first = level ? whole.left() + 6 : whole.top() + 6;
        const int last = level ? whole.right() - 6 : whole.bottom() - 6;
        for (const int along : {first, last}) {
            const QPoint at = level ? QPoint(along, handleAt.center().y() - 5) : QPoint(handleAt.center().x() - 5, along);
            if (!handleAt.adjusted(-2, -2, 2, 2).contains(at + across * 5)) {
                Note(slider, "track", Crossing(image_, at, across), kLineContrast);
            }
        }
        if (slider.tickPosition() != QSlider::NoTicks) {
            int marks = 0;
            for (int x = whole.left(); level && x <= whole.right(); ++x) {
                marks += ContrastOf(image_.pixel(x, handleAt.top() - 3), image_.pixel(whole.topLeft())) >= kLineContrast ? 1 : 0;
            }
            Note(slider, "marks", marks, slider.maximum() - slider.minimum() + 1);
        }
    }
    void LookAtScrollBar(const QScrollBar &bar)
    {
        struct Asked : QScrollBar {
            using QScrollBar::initStyleOption;
        };
        QStyleOptionSlider option;
        (bar.*&Asked::initStyleOption)(&option);
        const QRect handle = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
        const QRect groove = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarGroove, &bar);
        const QRect at = Place(bar, handle);
        const bool level = bar.orientation() == Qt::Horizontal;
        const QPoint along = level ? QPoint(1, 0) : QPoint(0, 1);
        const int behind = level ? groove.right() - handle.right() : groove.bottom() - handle.bottom();
        const int before = level ? handle.left() - groove.left() : handle.top() - groove.top();
        if (bar.maximum() > bar.minimum() && behind > 2) {
            Note(bar, "handle",
                 Crossing(image_, (level ? QPoint(at.right(), at.center().y()) : QPoint(at.center().x(), at.bottom())) + along * 2, -along),
                 kLineContrast);
        } else if (bar.maximum() > bar.minimum() && before > 2) {
            Note(bar, "handle",
                 Crossing(image_, (level ? QPoint(at.left(), at.center().y()) : QPoint(at.center().x(), at.top())) - along * 2, along),
                 kLineContrast);
        }
    }
    void LookAtMenus(const QMenuBar &menus)
    {
        for (QAction *action : menus.actions()) {
            if (action->isVisible() && action->isEnabled() && menus.actionGeometry(action).isValid()) {
                Text(menus, menus.actionGeometry(action));
            }
        }
    }
    void LookAtField(const QWidget &widget)
    {
        if (const auto *combo = qobject_cast<const QComboBox *>(&widget)) {
            Edge(widget, widget.rect());
            Text(widget, widget.rect());
            static_cast<void>(combo);
        } else if (const auto *line = qobject_cast<const QLineEdit *>(&widget)) {
            Edge(widget, widget.rect());
            if (!line->text().isEmpty()) {
                Text(widget, widget.rect());
            }
        } else if (const auto *lines = qobject_cast<const QPlainTextEdit *>(&widget)) {
            Edge(widget, widget.rect());
            if (!lines->toPlainText().trimmed().isEmpty()) {
                Text(widget, widget.rect());
            }
        } else if (const auto *list = dynamic_cast<const ListView *>(&widget)) {
            Edge(widget, widget.rect());
            LookAtRows(*list);
        } else if (const auto *group = qobject_cast<const QGroupBox *>(&widget)) {
            Text(widget, QRect(0, -2, group->width(), group->fontMetrics().height() + 4));
            Note(widget, "edge", Crossing(image_, Place(widget).bottomLeft() + QPoint(-2, -20), QPoint(1, 0)), kLineContrast);
        } else if (widget.inherits("velluto::MarkerView") || widget.objectName() == QLatin1String("Line1") ||
                   widget.objectName() == QLatin1String("Picture3") || widget.objectName() == QLatin1String("Picture2")) {
            Note(widget, "mark", TextContrast(image_, Place(widget).adjusted(-2, 0, 2, 0)), kLineContrast);
        }
    }
    void LookAtRows(const ListView &list)
    {
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            const QModelIndex index = list.model()->index(row, 0);
            const QRect place = list.visualRect(index);
            if (list.viewport()->rect().contains(place) && !index.data().toString().trimmed().isEmpty()) {
                Text(*list.viewport(), place.adjusted(-1, -3, 1, 3));
            }
        }
    }

    QWidget &window_;
    QImage image_;
    QStringList faint_;
};

} // namespace

double ContrastOf(QRgb one, QRgb other)
{
    constexpr double kFlare = 0.05;
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + kFlare) / (darker + kFlare);
}

double TextContrast(const QImage &image, const QRect &rect)
{
    const QRect inside = rect & image.rect();
    std::map<QRgb, int> counts;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (int x = inside.left(), from = x; x <= inside.right(); ++x) {
            if (x == inside.right() || line[x + 1] != line[x]) { // the end of a run
                counts[line[x]] += x + 1 - from;
                from = x + 1;
            }
        }
    }
    if (counts.empty()) {
        return 1;
    }
    const QRgb back = std::ranges::max_element(counts, {}, [](const auto &count) { return count.second; })->first;
    double most = 1;
    for (const auto &[colour, count] : counts) {
        most = std::max(most, ContrastOf(colour, back));
    }
    return most;
}

double EdgeContrast(const QImage &image, const QRect &box, const QRect &holder)
{
    constexpr int kOutside = 2; // pixels
    struct Side {
        QPoint outside;
        QPoint step;
    };
    const QPoint middle = box.center();
    const std::array sides{
        Side{QPoint(box.left() - kOutside, middle.y()), QPoint(1, 0)}, Side{QPoint(box.right() + kOutside, middle.y()), QPoint(-1, 0)},
        Side{QPoint(middle.x(), box.top() - kOutside), QPoint(0, 1)}, Side{QPoint(middle.x(), box.bottom() + kOutside), QPoint(0, -1)}};
    double faintest = 21;
    for (const Side &side : sides) {
        if (holder.contains(side.outside)) {
            faintest = std::min(faintest, Crossing(image, side.outside, side.step));
        }
    }
    return faintest;
}

std::string FaintParts(QWidget &window)
{
    return Finder(window).Find().join(QStringLiteral(", ")).toStdString();
}

} // namespace velluto::test
