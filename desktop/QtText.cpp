#include "desktop/QtText.h"

#include "app/Characters.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;

// Control codes of ASCII, and those that stand for the bytes without a character.
bool IsControl(char32_t character)
{
    return character < U' ' || (character >= 0x7F && character < 0xA0);
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
    std::u32string drawn = CharactersOfBytes(bytes.substr(0, bytes.find('\0')));
    std::ranges::replace_if(drawn, IsControl, kNoCharacter);
    return QString::fromStdU32String(drawn);
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
