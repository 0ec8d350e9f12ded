#include "platform/windows/WinConsole.h"

#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>
#include <memory>
#include <shellapi.h>

namespace velluto {

void PrepareStreams()
{
    for (std::FILE *stream : {stdin, stdout, stderr}) {
        ::_setmode(::_fileno(stream), _O_BINARY);
    }
    static const UINT before = ::GetConsoleOutputCP(); // the console is its owner's: it gets that back
    ::SetConsoleOutputCP(CP_UTF8);
    std::atexit([] { ::SetConsoleOutputCP(before); });
}

std::vector<std::string> WordsOfCommand(int /*argc*/, char ** /*argv*/)
{
    int count = 0;
    const std::unique_ptr<LPWSTR, decltype(&::LocalFree)> words(::CommandLineToArgvW(::GetCommandLineW(), &count), &::LocalFree);
    std::vector<std::string> found;
    for (int i = 1; words != nullptr && i < count; ++i) {
        found.push_back(Utf8Of(words.get()[i]));
    }
    return found;
}

void TellWhoStarted(std::string_view text)
{
    HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    const std::optional<std::wstring> wide = WideOf(text);
    DWORD written = 0;
    if (output != nullptr && ::WriteFile(output, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0) {
        return;
    }
    if (!wide) {
        return;
    }
    if (::AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
        output = ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
        if (::WriteConsoleW(output, wide->data(), static_cast<DWORD>(wide->size()), &written, nullptr) != 0) {
            return;
        }
    }
    ::MessageBoxW(nullptr, wide->c_str(), L"Velluto", MB_OK);
}

} // namespace velluto
