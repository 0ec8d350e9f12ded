#include "desktop/Start.h"

#include "platform/machine/Console.h"

#include <dlfcn.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace velluto {

std::vector<std::string> WordsAtStart(int argc, char **argv)
{
    return WordsOfCommand(argc, argv);
}

std::vector<std::string> WordsLeft(const std::vector<std::string> & /*words*/, int argc, char **argv)
{
    return WordsOfCommand(argc, argv);
}

// The bytes of a name stay as they are: it need be no text.
std::string FromRoot(const std::string &path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

Argument KindOf(const std::string &path)
{
    std::error_code unknown;
    const std::filesystem::file_status there = std::filesystem::status(path, unknown);
    const bool isFolder = std::filesystem::is_directory(there);
    return !std::filesystem::exists(there) ? Argument::Missing : (isFolder ? Argument::Folder : Argument::File);
}

void GoToUserFolder(std::vector<std::string> & /*words*/) {}

bool SystemSpeaksItalian()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return std::string_view(value).starts_with("it");
        }
    }
    return false;
}

std::string_view ThemeOfSystem()
{
    return {};
}

void SetLocale()
{
    std::setlocale(LC_ALL, "");
}

// Fontconfig comes with the Qt that reads the fonts by it; its configuration alone takes half as long as all that Qt itself does before its
// first window. Nothing of Qt's may be called here: Qt takes the first thread that uses it for the main thread.
std::future<void> ReadFontsAhead()
{
    return std::async([] {
        void *const library = ::dlopen("libfontconfig.so.1", RTLD_NOW);
        const auto init = library != nullptr ? reinterpret_cast<int (*)()>(::dlsym(library, "FcInit")) : nullptr;
        if (init != nullptr) {
            init();
        }
    });
}

// Reading the fonts takes much more than what stays of it.
void GiveBackMemory()
{
#ifdef __GLIBC__
    ::malloc_trim(0);
#endif
}

std::string Activation()
{
    const char *const activation = std::getenv("XDG_ACTIVATION_TOKEN");
    return activation != nullptr ? activation : "";
}

void Tell(std::string_view text)
{
    std::cout << text;
}

} // namespace velluto
