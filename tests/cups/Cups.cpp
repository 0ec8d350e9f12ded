// A libcups on paper, for tests alone: one printer, the default one, whose pages go to the file that STANDIN_PRINTER names. Wine finds
// Windows' printers by it where its folder is in LD_LIBRARY_PATH. What libcups would ask of its server is answered here, with its numbers.
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int kContinue = 100; // HTTP
constexpr int kNotFound = 404;
constexpr int kServerError = 500;

struct Destination {
    const char *name = "Paper";
    const char *instance = nullptr;
    int isDefault = 1;
    int optionCount = 0;
    void *options = nullptr;
};

Destination paper;
std::FILE *pages = nullptr;

} // namespace

extern "C" {

int cupsGetDests(Destination **destinations)
{
    *destinations = &paper;
    return 1;
}

void cupsFreeDests(int /*count*/, Destination * /*destinations*/) {}

// No description of the printer: Wine has one for any.
int cupsGetPPD3(void * /*http*/, const char * /*name*/, long * /*time*/, char * /*buffer*/, std::size_t /*size*/)
{
    return kNotFound;
}

const char *cupsGetOption(const char * /*name*/, int /*count*/, void * /*options*/)
{
    return nullptr;
}

int cupsAddOption(const char * /*name*/, const char * /*value*/, int count, void ** /*options*/)
{
    return count;
}

int cupsParseOptions(const char * /*words*/, int count, void ** /*options*/)
{
    return count;
}

void cupsFreeOptions(int /*count*/, void * /*options*/) {}

int cupsCreateJob(void * /*http*/, const char * /*name*/, const char * /*title*/, int /*count*/, void * /*options*/)
{
    return 1;
}

int cupsStartDocument(void * /*http*/, const char * /*name*/, int /*job*/, const char * /*title*/, const char * /*format*/, int /*last*/)
{
    pages = std::fopen(std::getenv("STANDIN_PRINTER"), "wb");
    return pages != nullptr ? kContinue : kServerError;
}

int cupsWriteRequestData(void * /*http*/, const char *bytes, std::size_t count)
{
    return std::fwrite(bytes, 1, count, pages) == count ? kContinue : kServerError;
}

int cupsFinishDocument(void * /*http*/, const char * /*name*/)
{
    return std::fclose(pages);
}

} // extern "C"
