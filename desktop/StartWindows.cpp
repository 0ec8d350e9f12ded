#include "desktop/Start.h"

#include "desktop/QtText.h"
#include "desktop/ShippedFiles.h"
#include "platform/machine/Console.h"
#include "platform/windows/WinColours.h"
#include "platform/windows/WinPlaces.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

namespace velluto {

std::vector<std::string> WordsAtStart(int argc, char **argv)
{
    return WordsOfCommand(argc, argv);
}

std::vector<std::string> WordsLeft(const std::vector<std::string> &words, int argc, char **argv)
{
    const QStringList kept = QCoreApplication::arguments().mid(1);
    const std::vector<std::string> typed = WordsOfCommand(argc, argv);
    std::vector<std::string> left;
    auto next = kept.begin();
    for (std::size_t i = 0; i < typed.size() && next != kept.end(); ++i) {
        if (FromUtf8(typed[i]) == *next) {
            left.push_back(words[i]);
            ++next;
        }
    }
    return left;
}

std::string FromRoot(const std::string &path)
{
    return ToUtf8(QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(FromUtf8(path)).absoluteFilePath())));
}

Argument KindOf(const std::string &path)
{
    const QFileInfo there(FromUtf8(path));
    return !there.exists() ? Argument::Missing : (there.isDir() ? Argument::Folder : Argument::File);
}

void GoToUserFolder(std::vector<std::string> &words)
{
    const QString folder = FromUtf8(UserFolder());
    if (folder.isEmpty()) {
        return;
    }
    for (std::string &word : words) {
        if (!word.empty() && KindOf(word) != Argument::Missing) {
            word = FromRoot(word);
        }
    }
    QDir().mkpath(folder);
    PutShippedFiles(FromUtf8(ProgramFolder()), folder);
    QDir::setCurrent(folder);
}

bool SystemSpeaksItalian()
{
    return QLocale::system().uiLanguages().value(0).startsWith(QLatin1String("it"));
}

std::string_view ThemeOfSystem()
{
    return ThemeFor(WantsHighContrast(), WantsDarkPrograms());
}

void SetLocale() {} // Qt leaves it alone

std::future<void> ReadFontsAhead()
{
    return {};
}

void GiveBackMemory() {} // no fonts are read ahead

std::string Activation()
{
    return {}; // the sender lets the taker come to the front
}

void Tell(std::string_view text)
{
    TellWhoStarted(text);
}

} // namespace velluto
