#include "app/RecentFiles.h"

#include "app/Paths.h"
#include "app/StoredPlace.h"

#include <algorithm>
#include <vector>

namespace velluto {

namespace {

constexpr std::size_t kWholeCaption = 35; // characters of a path that need no shortening
constexpr std::size_t kTail = 28;         // characters that may follow the dots
constexpr std::string_view kDots = "...";

// A path as its characters, so that a letter of several bytes counts once. A byte that belongs to no character counts
// as one.
std::vector<std::string_view> Characters(std::string_view utf8)
{
    std::vector<std::string_view> characters;
    std::size_t at = 0;
    while (at < utf8.size()) {
        std::size_t end = at + 1;
        while (end < utf8.size() && (static_cast<unsigned char>(utf8[end]) & 0xC0U) == 0x80U) {
            ++end;
        }
        characters.push_back(utf8.substr(at, end - at));
        at = end;
    }
    return characters;
}

using Text = std::vector<std::string_view>;

std::string Join(const Text &text, std::size_t from, std::size_t count)
{
    std::string joined;
    for (std::size_t i = from; i < std::min(text.size(), from + count); ++i) {
        joined += text[i];
    }
    return joined;
}

// How a path is divided: what stands before the dots, which characters separate, and which separator is written.
struct PathForm {
    std::size_t rootLength;
    std::string_view separators;
    std::string_view written;
};

// A path in drive form, such as old settings files hold, keeps its own rules on every platform.
PathForm FormOf(std::string_view path)
{
    if (kPathSeparator == '/' && !path.empty() && path.front() == kPathSeparator) {
        return {1, "/\\", "/"};
    }
    return {3, "\\", "\\"};
}

std::string Shortened(std::string_view path)
{
    const Text text = Characters(path);
    if (text.size() <= kWholeCaption) {
        return std::string(path);
    }
    const PathForm form = FormOf(path);
    const auto separates = [&form](std::string_view c) { return form.separators.find(c) != std::string_view::npos; };
    // The separator of the root is not counted, but it is met on the walk.
    const auto counted = std::count_if(text.begin() + static_cast<std::ptrdiff_t>(form.rootLength), text.end(), separates);
    if (counted == 0) {
        return Join(text, 0, kWholeCaption).append(kDots);
    }
    const std::string head = Join(text, 0, form.rootLength).append(kDots).append(form.written);
    std::ptrdiff_t met = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!separates(text[i])) {
            continue;
        }
        const std::size_t rest = text.size() - (i + 1);
        if (rest <= kTail) {
            return head + Join(text, i + 1, rest);
        }
        if (met == counted) {
            break;
        }
        ++met;
    }
    const auto last = std::find_if(text.rbegin(), text.rend(), separates);
    const auto afterLast = static_cast<std::size_t>(text.rend() - last);
    return head + Join(text, afterLast, kTail).append(kDots);
}

RecentRecord &Entry(Modulo1 &app, int n)
{
    return app.settings.RecentTable.at(static_cast<std::size_t>(n));
}

// Copies the entries into the working record one by one and stops at the first that holds the path: its number, or 0.
int ScanForPath(Modulo1 &app, std::string_view path)
{
    for (int i = 1; i <= kRecentFiles; ++i) {
        app.WorkRecentRecord = Entry(app, i);
        if (app.WorkRecentRecord.Path.Trimmed() == path) {
            return i;
        }
    }
    return 0;
}

// The same for the first empty entry.
int ScanForEmpty(Modulo1 &app)
{
    for (int j = 1; j <= kRecentFiles; ++j) {
        app.WorkRecentRecord = Entry(app, j);
        if (app.WorkRecentRecord.Path.IsEmptyEntry()) {
            return j;
        }
    }
    return 0;
}

} // namespace

void AddRecent(Modulo1 &app, std::string_view path, std::uint8_t kind)
{
    app.frame.mnuSep16.visible = true;
    int place = ScanForPath(app, path);
    if (place == 0) {
        // The new entry keeps the other fields of the last entry scanned; the first close of its window sets them.
        place = ScanForEmpty(app);
    }
    const int oldest = place == 0 ? kRecentFiles : place;
    for (int k = oldest - 1; k >= 1; --k) {
        Entry(app, k + 1) = Entry(app, k);
    }
    app.WorkRecentRecord.Path.Set(path);
    app.WorkRecentRecord.Kind = kind;
    Entry(app, 1) = app.WorkRecentRecord;
    RefreshRecentMenu(app);
}

std::string RecentCaption(const Modulo1 &app, int n)
{
    return (n < 10 ? "  &" : "&") + std::to_string(n) + "  " + Shortened(app.WorkRecentRecord.Path.Trimmed());
}

void RefreshRecentMenu(Modulo1 &app)
{
    for (int n = 1; n <= kRecentFiles; ++n) {
        app.WorkRecentRecord = Entry(app, n);
        if (app.WorkRecentRecord.Path.IsEmptyEntry()) {
            return;
        }
        app.frame.mnuRecentFile[n].caption = RecentCaption(app, n);
        app.frame.mnuRecentFile[n].visible = true;
    }
}

void UpdateRecentPlacement(Modulo1 &app)
{
    const Form *window = app.children.Active();
    if (window == nullptr) {
        return;
    }
    const int i = ScanForPath(app, window->Tag.Path());
    if (i == 0) {
        return;
    }
    app.WorkRecentRecord.Top = NearestIn<std::int16_t>(window->Top());
    app.WorkRecentRecord.Left = NearestIn<std::int16_t>(window->Left());
    app.WorkRecentRecord.Height = NearestIn<std::int16_t>(window->Height());
    app.WorkRecentRecord.Width = NearestIn<std::int16_t>(window->Width());
    Entry(app, i) = app.WorkRecentRecord;
}

} // namespace velluto
