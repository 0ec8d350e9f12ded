#include "app/RecentFiles.h"

#include "app/Characters.h"
#include "app/Paths.h"
#include "app/StoredPlace.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr std::size_t kWholeCaption = 35; // characters of a path that need no shortening
constexpr std::size_t kTail = 28;         // characters that may follow the dots
constexpr std::u32string_view kDots = U"...";

// How a path is divided: what stands before the dots, which characters separate, and which separator is written.
struct PathForm {
    std::size_t rootLength;
    std::u32string_view separators;
    char32_t written;
};

// A path in drive form, such as old settings files hold, keeps its own rules on every platform.
PathForm FormOf(std::string_view path)
{
    if (kPathSeparator == '/' && !path.empty() && path.front() == kPathSeparator) {
        return {1, U"/\\", U'/'};
    }
    return {3, U"\\", U'\\'};
}

// Counted in characters, so that a letter of several bytes counts once; a path that is no UTF-8 has one in each byte.
std::u32string Shortened(std::string_view path)
{
    std::u32string text = CharactersOfText(path);
    if (text.size() <= kWholeCaption) {
        return text;
    }
    const PathForm form = FormOf(path);
    const auto separates = [&form](char32_t c) { return form.separators.find(c) != std::u32string_view::npos; };
    // The separator of the root is not counted, but it is met on the walk.
    const auto counted = std::count_if(text.begin() + static_cast<std::ptrdiff_t>(form.rootLength), text.end(), separates);
    if (counted == 0) {
        return text.substr(0, kWholeCaption).append(kDots);
    }
    const std::u32string head = text.substr(0, form.rootLength).append(kDots) + form.written;
    std::ptrdiff_t met = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!separates(text[i])) {
            continue;
        }
        if (text.size() - (i + 1) <= kTail) {
            return head + text.substr(i + 1);
        }
        if (met == counted) {
            break;
        }
        ++met;
    }
    const auto last = text.find_last_of(form.separators);
    return head + text.substr(last + 1, kTail).append(kDots);
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
    return (n < 10 ? "  &" : "&") + std::to_string(n) + "  " + Utf8Of(Shortened(app.WorkRecentRecord.Path.Trimmed()));
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
    StorePlace(app.WorkRecentRecord, *window);
    Entry(app, i) = app.WorkRecentRecord;
}

} // namespace velluto
