// Preloaded into a program: ends it, as kill -9 would, at the n-th operation that changes files. Every such operation counts, from
// the first after the file of VELLUTO_END_FROM is there, so that what comes before costs no run. Used by kills.py.
//
//     VELLUTO_END_AT=n     the operation that is not done any more
//     VELLUTO_END_HALF=1   a write at that place is done to its half
//     VELLUTO_END_COUNT    a file that gets the number of operations, where the program came to its end
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

long counted = 0;
bool begun = false;

template <class Function>
Function *Real(const char *name)
{
    return reinterpret_cast<Function *>(::dlsym(RTLD_NEXT, name));
}

// True where the program ends at this operation.
bool Counts()
{
    static const char *const from = std::getenv("VELLUTO_END_FROM");
    static const char *const at = std::getenv("VELLUTO_END_AT");
    begun = begun || from == nullptr || ::access(from, F_OK) == 0;
    return begun && ++counted == (at != nullptr ? std::atol(at) : -1);
}

void EndHere()
{
    if (Counts()) {
        ::_exit(9);
    }
}

// Half of a write is done first where that is asked for.
template <class Write>
void EndInWrite(size_t length, Write write)
{
    if (Counts()) {
        if (std::getenv("VELLUTO_END_HALF") != nullptr) {
            write(length / 2);
        }
        ::_exit(9);
    }
}

struct TellCount {
    ~TellCount()
    {
        if (const char *const path = std::getenv("VELLUTO_END_COUNT")) {
            if (std::FILE *const file = std::fopen(path, "w")) {
                std::fprintf(file, "%ld\n", counted);
                std::fclose(file);
            }
        }
    }
} tellCount;

int OpenBy(const char *name, const char *path, int flags, mode_t mode)
{
    if ((flags & O_ACCMODE) != O_RDONLY || (flags & O_CREAT) != 0) {
        EndHere();
    }
    return Real<int(const char *, int, ...)>(name)(path, flags, mode);
}

mode_t ModeOf(int flags, va_list more)
{
    return (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = ModeOf(flags, more);
    va_end(more);
    return OpenBy("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = ModeOf(flags, more);
    va_end(more);
    return OpenBy("open64", path, flags, mode);
}

ssize_t write(int file, const void *bytes, size_t length)
{
    const auto real = [=](size_t part) { return Real<ssize_t(int, const void *, size_t)>("write")(file, bytes, part); };
    if (file > STDERR_FILENO) {
        EndInWrite(length, real);
    }
    return real(length);
}

ssize_t pwrite64(int file, const void *bytes, size_t length, off_t offset)
{
    const auto real = [=](size_t part) { return Real<ssize_t(int, const void *, size_t, off_t)>("pwrite64")(file, bytes, part, offset); };
    EndInWrite(length, real);
    return real(length);
}

ssize_t pwrite(int file, const void *bytes, size_t length, off_t offset)
{
    return pwrite64(file, bytes, length, offset);
}

int fsync(int file)
{
    EndHere();
    return Real<int(int)>("fsync")(file);
}

int unlink(const char *path)
{
    EndHere();
    return Real<int(const char *)>("unlink")(path);
}

int rename(const char *from, const char *to)
{
    EndHere();
    return Real<int(const char *, const char *)>("rename")(from, to);
}

int link(const char *from, const char *to)
{
    EndHere();
    return Real<int(const char *, const char *)>("link")(from, to);
}

int mkdir(const char *path, mode_t mode)
{
    EndHere();
    return Real<int(const char *, mode_t)>("mkdir")(path, mode);
}

int rmdir(const char *path)
{
    EndHere();
    return Real<int(const char *)>("rmdir")(path);
}

int flock(int file, int operation)
{
    EndHere();
    return Real<int(int, int)>("flock")(file, operation);
}

int fchmod(int file, mode_t mode)
{
    EndHere();
    return Real<int(int, mode_t)>("fchmod")(file, mode);
}

int truncate(const char *path, off_t length)
{
    EndHere();
    return Real<int(const char *, off_t)>("truncate")(path, length);
}

int ftruncate(int file, off_t length)
{
    EndHere();
    return Real<int(int, off_t)>("ftruncate")(file, length);
}

int close(int file)
{
    if (begun) {
        EndHere();
    }
    return Real<int(int)>("close")(file);
}

} // extern "C"
