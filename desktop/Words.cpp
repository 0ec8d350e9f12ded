#include "desktop/Words.h"

#include <algorithm>
#include <array>

namespace velluto {

namespace {

constexpr char16_t kNoCharacter = 0xFFFD;
constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
constexpr unsigned char kTableStart = 0x80;

// The characters of bytes 0x80 to 0x9F; from 0xA0 on a byte is its own character.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC,       kNoCharacter, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
                                                   0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kNoCharacter, 0x017D, kNoCharacter,
                                                   kNoCharacter, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
                                                   0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kNoCharacter, 0x017E, 0x0178};

char16_t CharacterOf(unsigned char byte)
{
    if (byte < kFirstPrintable || byte == kDelete) {
        return kNoCharacter;
    }
    const auto inTable = static_cast<std::size_t>(byte - kTableStart);
    return byte >= kTableStart && inTable < kWindows1252.size() ? kWindows1252.at(inTable) : byte;
}

} // namespace

QString FromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToUtf8(const QString &text)
{
    return text.toStdString();
}

QString FromWindows1252(std::string_view bytes)
{
    const std::string_view drawn = bytes.substr(0, bytes.find('\0'));
    QString text(static_cast<qsizetype>(drawn.size()), Qt::Uninitialized);
    std::ranges::transform(drawn, text.begin(), [](char byte) { return QChar(CharacterOf(static_cast<unsigned char>(byte))); });
    return text;
}

QString WithAccessKey(std::string_view caption)
{
    QString text = FromUtf8(caption);
    const qsizetype mark = text.indexOf(QLatin1Char('&'));
    if (mark < 0) {
        return text;
    }
    return text.first(mark + 1) + text.sliced(mark + 1).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString WithoutAccessKey(std::string_view text)
{
    return FromUtf8(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString Spoken(std::string_view caption)
{
    QString text = FromUtf8(caption);
    const qsizetype mark = text.indexOf(QLatin1Char('&'));
    return mark < 0 ? text : text.remove(mark, 1);
}

QString AsTitle(std::string_view text)
{
    return FromUtf8(text).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

QString ToLines(QString text)
{
    return text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QString ToEditorText(std::string_view text)
{
    return ToLines(FromUtf8(text));
}

std::string FromEditorText(const QString &text)
{
    return ToUtf8(QString(text).replace(QLatin1Char('\n'), QLatin1String("\r\n")));
}

int ToEditorPosition(std::string_view text, int caret)
{
    const QString whole = FromUtf8(text);
    int position = 0;
    int counted = 0;
    for (qsizetype at = 0; at < whole.size() && counted < caret; ++at) {
        // A character beyond the first plane takes two units; a CR before its LF takes none.
        counted += whole[at].isLowSurrogate() ? 0 : 1;
        const bool hidden = whole[at] == QLatin1Char('\r') && at + 1 < whole.size() && whole[at + 1] == QLatin1Char('\n');
        position += hidden ? 0 : 1;
        if (whole[at].isHighSurrogate() && at + 1 < whole.size() && whole[at + 1].isLowSurrogate()) {
            ++at;
            ++position;
        }
    }
    return position;
}

int FromEditorPosition(const QString &text, int position)
{
    int caret = 0;
    const qsizetype end = std::min<qsizetype>(position, text.size());
    for (qsizetype at = 0; at < end; ++at) {
        caret += text[at] == QLatin1Char('\n') ? 2 : 1;
        if (text[at].isHighSurrogate() && at + 1 < end && text[at + 1].isLowSurrogate()) {
            ++at;
        }
    }
    return caret;
}

} // namespace velluto
