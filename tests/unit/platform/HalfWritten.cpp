#include "unit/platform/HalfWritten.h"

#ifdef _WIN32
#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"
#else
#include <sys/wait.h>
#include <unistd.h>
#endif

#include <cstdlib>
#include <memory>
#include <span>
#include <sstream>

namespace velluto::test {

namespace {

[[noreturn]] void Die()
{
#ifdef _WIN32
    ::TerminateProcess(::GetCurrentProcess(), 0);
    std::abort();
#else
    ::_exit(0);
#endif
}

#ifdef _WIN32

// What the process that dies is to do is told by a variable: the folder and the files, a line each.
constexpr const wchar_t *kTold = L"VELLUTO_WRITES_AND_DIES";

// This program, started once more, writes and dies before any test.
[[maybe_unused]] const bool kIsNoneThatDies = [] {
    std::wstring told(::GetEnvironmentVariableW(kTold, nullptr, 0), L'\0'); // with its zero
    if (told.empty()) {
        return true;
    }
    told.resize(::GetEnvironmentVariableW(kTold, told.data(), static_cast<DWORD>(told.size())));
    std::istringstream lines(Utf8Of(told));
    std::string home;
    std::vector<HalfWritten> files;
    std::getline(lines, home);
    for (std::string line; std::getline(lines, line);) {
        files.push_back({line[0] == 'r' ? HalfWritten::How::Replaced : HalfWritten::How::Changed, line.substr(1)});
    }
    WriteAndDie(home, files);
}();

#endif

} // namespace

void SaveHalf(FileStore &files, const std::string &path)
{
    std::unique_ptr<RandomAccessFile> file;
    (void)files.Delete(path);
    (void)files.Open(path, file);
    (void)file->Write(0, std::span(kNew).first(kNew.size() / 2));
}

void WriteAndDie(const std::string &home, const std::vector<HalfWritten> &files)
{
    using How = HalfWritten::How;
    MachineFiles machine;
    machine.KeepWhole(home);
    std::vector<std::unique_ptr<WritingUnderWay>> underWay;
    for (const HalfWritten &half : files) {
        underWay.push_back(half.how == How::Replaced ? machine.BeginReplacing(half.path, {kNew}) : machine.BeginChanging(half.path));
    }
    for (const HalfWritten &half : files) {
        if (half.how == How::Replaced) {
            SaveHalf(machine, half.path);
        } else {
            std::unique_ptr<RandomAccessFile> file;
            (void)machine.Open(half.path, file);
            (void)file->Write(1, kNew);
        }
    }
    Die();
}

#ifdef _WIN32

void InAProcessThatDies(const std::string &home, const std::vector<HalfWritten> &files)
{
    std::string told = home;
    for (const HalfWritten &half : files) {
        told += (half.how == HalfWritten::How::Replaced ? "\nr" : "\nc") + half.path;
    }
    ::SetEnvironmentVariableW(kTold, WideOf(told)->c_str());
    std::wstring program(32768, L'\0');
    program.resize(::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
    STARTUPINFOW how{};
    how.cb = sizeof(how);
    PROCESS_INFORMATION child{};
    ASSERT_NE(::CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &how, &child), 0);
    ::SetEnvironmentVariableW(kTold, nullptr);
    ::WaitForSingleObject(child.hProcess, INFINITE);
    DWORD code = 1;
    EXPECT_NE(::GetExitCodeProcess(child.hProcess, &code), 0);
    EXPECT_EQ(code, 0U);
    ::CloseHandle(child.hProcess);
    ::CloseHandle(child.hThread);
}

#else

void InAProcessThatDies(const std::string &home, const std::vector<HalfWritten> &files)
{
    const pid_t child = ::fork();
    if (child == 0) {
        WriteAndDie(home, files);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
}

#endif

} // namespace velluto::test
