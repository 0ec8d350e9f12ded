// The program's picture: what the code draws and what the drawing in the repository shows are the same.
#include "desktop/Icon.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>
#include <QRegularExpression>
#include <QStyle>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

namespace velluto::test {

namespace {

constexpr int kSide = 128;
constexpr double kUnits = 64.0; // the drawing's own width

// Reads as much of SVG as the drawing uses: rectangles with round corners, one path of curves, one gradient from top to
// bottom, and groups that give their colour to what is in them.
class Drawing {
public:
    QImage Draw(const QString &file)
    {
        QFile svg(file);
        EXPECT_TRUE(svg.open(QIODevice::ReadOnly)) << file.toStdString();
        QImage image(kSide, kSide, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(kSide / kUnits, kSide / kUnits);
        for (QXmlStreamReader xml(&svg); !xml.atEnd();) {
            if (xml.readNext() == QXmlStreamReader::StartElement) {
                Take(xml.name().toString(), xml.attributes(), painter);
            }
            EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        }
        return image;
    }

private:
    void Take(const QString &name, const QXmlStreamAttributes &given, QPainter &painter)
    {
        const auto text = [&given](const char *key) { return given.value(QLatin1String(key)).toString(); };
        if (name == QLatin1String("stop")) {
            gradient_.setColorAt(text("offset").toDouble(), QColor(text("stop-color")));
        } else if (name == QLatin1String("g")) {
            fill_ = QColor(text("fill"));
        } else if (name == QLatin1String("rect")) {
            const QRectF rect(text("x").toDouble(), text("y").toDouble(), text("width").toDouble(), text("height").toDouble());
            painter.setPen(Qt::NoPen);
            gradient_.setStart(rect.topLeft());
            gradient_.setFinalStop(rect.bottomLeft());
            painter.setBrush(text("fill").startsWith(QLatin1String("url")) ? QBrush(gradient_) : QBrush(fill_));
            painter.drawRoundedRect(rect, text("rx").toDouble(), text("rx").toDouble());
        } else if (name == QLatin1String("path")) {
            QPen pen(QColor(text("stroke")), text("stroke-width").toDouble());
            pen.setCapStyle(Qt::RoundCap);
            painter.setPen(pen);
            painter.setBrush(Qt::NoBrush);
            painter.drawPath(Curve(text("d")));
        }
    }
    // "M" a point, "C" two control points and a point, "S" one of them: the first is the mirror of the last one before.
    static QPainterPath Curve(const QString &description)
    {
        QStringList words = QString(description)
                                .replace(QRegularExpression(QStringLiteral("([MCS])")), QStringLiteral(" \\1 "))
                                .split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const auto point = [&words] {
            const double x = words.takeFirst().toDouble();
            return QPointF(x, words.takeFirst().toDouble());
        };
        QPainterPath path;
        QPointF control;
        while (!words.isEmpty()) {
            const QString command = words.takeFirst();
            if (command == QLatin1String("M")) {
                path.moveTo(point());
                continue;
            }
            const QPointF first = command == QLatin1String("C") ? point() : 2 * path.currentPosition() - control;
            control = point();
            const QPointF end = point();
            path.cubicTo(first, control, end);
        }
        return path;
    }

    QLinearGradient gradient_;
    QColor fill_;
};

TEST(ProgramIcon, IsTheDrawingOfTheRepository)
{
    const QImage drawn = Drawing().Draw(QStringLiteral(VELLUTO_ICON));
    const QImage shown = ProgramIcon().pixmap(QSize(kSide, kSide)).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    ASSERT_EQ(shown.size(), drawn.size());
    int differing = 0;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const QColor one = drawn.pixelColor(x, y);
            const QColor other = shown.pixelColor(x, y);
            constexpr int kRounding = 8; // of a shade
            const bool same = std::abs(one.red() - other.red()) <= kRounding && std::abs(one.green() - other.green()) <= kRounding &&
                              std::abs(one.blue() - other.blue()) <= kRounding && std::abs(one.alpha() - other.alpha()) <= kRounding;
            differing += same ? 0 : 1;
        }
    }
    EXPECT_LT(differing, kSide); // fewer than one in a hundred, along edges
    EXPECT_GT(shown.pixelColor(kSide / 2, kSide / 8).alpha(), 200);
}

TEST(ProgramIcon, IsDrawnOnceInEachSize)
{
    const QIcon icon = ProgramIcon();
    const QPixmap small = icon.pixmap(QSize(16, 16));
    const QPixmap large = icon.pixmap(QSize(32, 32));
    EXPECT_NE(small.toImage(), large.toImage());
    EXPECT_EQ(icon.pixmap(QSize(16, 16)).cacheKey(), small.cacheKey());
    EXPECT_EQ(icon.pixmap(QSize(32, 32)).cacheKey(), large.cacheKey());
    EXPECT_EQ(ProgramIcon().pixmap(QSize(16, 16)).toImage(), small.toImage());
}

TEST(MoreIcon, IsOfTheColourOfWords)
{
    const QColor words = QGuiApplication::palette().color(QPalette::ButtonText);
    const QImage shown = QApplication::style()->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton).pixmap(QSize(64, 64)).toImage();
    EXPECT_EQ(shown.pixelColor(30, 32), words); // the points of the two angles
    EXPECT_EQ(shown.pixelColor(50, 32), words);
    EXPECT_EQ(shown.pixelColor(40, 32).alpha(), 0); // between them
}

} // namespace

} // namespace velluto::test
