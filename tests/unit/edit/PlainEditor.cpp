#include "unit/edit/PlainEditor.h"

#include <algorithm>

namespace velluto::test {

int PlainDocument::At(int position) const
{
    return static_cast<unsigned char>(prefix.at(static_cast<std::size_t>(position - 1)));
}

void PlainDocument::Set(int position, int value)
{
    prefix.at(static_cast<std::size_t>(position - 1)) = static_cast<char>(value);
}

std::string PlainDocument::Row(int row) const
{
    return row >= 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)] : "";
}

bool PlainDocument::Selected(int row) const
{
    return row >= 0 && row < static_cast<int>(selected.size()) && selected[static_cast<std::size_t>(row)];
}

void PlainDocument::SetRow(int row, const std::string &text)
{
    if (row >= 0 && row < static_cast<int>(rows.size())) {
        rows[static_cast<std::size_t>(row)] = text;
    }
}

std::string PlainTrimmed(const std::string &text)
{
    std::string left = text;
    while (!left.empty() && left.back() == ' ') {
        left.pop_back();
    }
    return left;
}

namespace {

bool IsProgram(int kind)
{
    return kind == 14 || kind == 18 || kind == 19;
}

bool IsStyle(int kind)
{
    return kind == 20 || kind == 21;
}

bool IsPerformance(int kind)
{
    return kind == 22 || kind == 23;
}

} // namespace

int PlainRowCount(const PlainDocument &document)
{
    const int kind = document.At(1);
    if (IsProgram(kind)) {
        return document.At(3);
    }
    return IsStyle(kind) ? 16 : 8;
}

int PlainEmptyLength(const PlainDocument &document)
{
    const int kind = document.At(1);
    if (IsProgram(kind)) {
        return 4;
    }
    return IsStyle(kind) ? 3 : 2;
}

bool PlainOccupied(const PlainDocument &document, int row)
{
    return static_cast<int>(PlainTrimmed(document.Row(row)).size()) > PlainEmptyLength(document);
}

bool PlainExactlyEmpty(const PlainDocument &document, int row)
{
    return static_cast<int>(PlainTrimmed(document.Row(row)).size()) == PlainEmptyLength(document);
}

std::string PlainSize(std::int32_t length)
{
    const std::string number = std::to_string(length);
    const std::string printed = (length < 0 ? "" : " ") + number;
    const int blanks = 7 - static_cast<int>(printed.size());
    return std::string(static_cast<std::size_t>(std::max(blanks, 0)), ' ') + number;
}

void PlainCopy(PlainGlobals &globals, const PlainDocument &document)
{
    PlainClipboard &clip = globals.clipboard;
    clip.ClipSlot = document.At(15);
    clip.ClipKind = document.At(1);
    clip.ClipHasSts = document.At(8);
    clip.ClipFirstRow = 256;
    clip.ClipCount = 0;
    clip.ClipImage = document.image;
    // A list of 64 Programs is looked through to 127 as well: there is nothing behind its end.
    const int last = IsProgram(clip.ClipKind) ? 127 : IsStyle(clip.ClipKind) ? 15 : 7;
    for (int i = 0; i <= last; ++i) {
        if (PlainOccupied(document, i) && document.Selected(i)) {
            if (clip.ClipFirstRow == 256) {
                clip.ClipFirstRow = i;
            }
            clip.ClipCount = clip.ClipCount + 1;
        } else if (clip.ClipFirstRow < 256) {
            break;
        }
    }
    clip.ClipFirstRow = clip.ClipFirstRow + 1;
    clip.ClipValid = 1;
}

namespace {

// Programs and Performances: the whole run at once.
void CutItems(PlainGlobals &globals, const std::string &source, int first, int count)
{
    const int n = PlainCount(source);
    std::string built = PlainHeader();
    PlainIndex(source, globals.ItemIndex);
    const int e = PlainFind(source, first, n);
    if (e == n + 1) { // also where nothing was selected: the file is left without items
        globals.BuildImage = PlainFinished(built, globals.BuildItemIndex, 0);
        return;
    }
    const bool itemsFollow = e + count - 1 < n;
    if (e > 1) {
        built += PlainEntries(source, 1, e - 1);
    }
    if (itemsFollow) {
        built += PlainEntries(source, e + count, n - count); // on past the directory where e > 1
    }
    if (e > 1) {
        built += PlainBodies(source, globals.ItemIndex, 1, e - 1);
    }
    if (itemsFollow) {
        built += PlainBodies(source, globals.ItemIndex, e + count, n);
    }
    int place = 1;
    for (int i = 1; i <= e - 1; ++i) {
        globals.BuildItemIndex.Length(place) = globals.ItemIndex.Length(i);
        place = place + 1;
    }
    for (int i = e + count; i <= n; ++i) {
        globals.BuildItemIndex.Length(place) = globals.ItemIndex.Length(i);
        place = place + 1;
    }
    const int m = n - count;
    PlainCumulate(globals.BuildItemIndex, m);
    globals.BuildImage = PlainFinished(built, globals.BuildItemIndex, m);
}

// A Style and its STS out of a grouped file. Answers how many items are left.
int CutGrouped(PlainGlobals &globals, const std::string &source, std::string &built, int e)
{
    const int n = PlainCount(source);
    const int h = n / 2;
    PlainTable &index = globals.ItemIndex;
    built += PlainEntries(source, 1, e - 1);
    built += PlainEntries(source, e + 1, h - 1);
    built += PlainEntries(source, e + h + 1, n - (e + h));
    if (e > 1) {
        built += PlainBodies(source, index, 1, e - 1);
    }
    if (h > 1) {
        built += PlainBodies(source, index, e + 1, e + h - 1);
    }
    if (e < h) {
        built += PlainBodies(source, index, e + h + 1, n);
    }
    int place = 1;
    for (int i = 1; i <= n; ++i) {
        if (i != e && i != e + h) {
            globals.BuildItemIndex.Length(place) = index.Length(i);
            place = place + 1;
        }
    }
    return n - 2;
}

// A Style alone, or with the STS behind it.
int CutRun(PlainGlobals &globals, const std::string &source, std::string &built, int e, int w)
{
    const int n = PlainCount(source);
    PlainTable &index = globals.ItemIndex;
    if (e > 1) {
        built += PlainEntries(source, 1, e - 1);
    }
    if (e + w - 1 < n) {
        built += PlainEntries(source, e + w, n - e - w + 1);
    }
    if (e > 1) {
        built += PlainBodies(source, index, 1, e - 1);
    }
    if (e + w - 1 < n) {
        built += PlainBodies(source, index, e + w, n);
    }
    int place = 1;
    for (int i = 1; i <= n; ++i) {
        if (i < e || i > e + w - 1) {
            globals.BuildItemIndex.Length(place) = index.Length(i);
            place = place + 1;
        }
    }
    return n - w;
}

// Styles: one a pass.
void CutStyles(PlainGlobals &globals, std::string source, int first, int count)
{
    const int a = PlainLayout(source);
    for (int pass = 1; pass <= count; ++pass) {
        const int n = PlainCount(source);
        PlainIndex(source, globals.ItemIndex);
        std::string built = PlainHeader();
        const int e = PlainFind(source, first, n);
        int m = 0;
        if (a == 2) {
            m = CutGrouped(globals, source, built, e);
        } else {
            m = CutRun(globals, source, built, e, a == 1 ? 2 : 1);
        }
        PlainCumulate(globals.BuildItemIndex, m);
        globals.BuildImage = PlainFinished(built, globals.BuildItemIndex, m);
        source = globals.BuildImage;
        first = first + 1;
    }
}

void CutSteps(PlainGlobals &globals, PlainDocument &document)
{
    const int kind = document.At(1);
    const int rows = PlainRowCount(document);
    const int empty = PlainEmptyLength(document);
    const std::string source = document.image;

    int first = 1;
    while (first <= rows && !(PlainOccupied(document, first - 1) && document.Selected(first - 1))) {
        first = first + 1;
    }
    if (first <= rows) { // else the count of the Cut before stays
        globals.CutCount = 0;
        for (int r = first; r <= rows && !PlainExactlyEmpty(document, r - 1) && document.Selected(r - 1); ++r) {
            globals.CutCount = globals.CutCount + 1;
        }
    }
    const int count = globals.CutCount;

    PlainClipboard &clip = globals.clipboard;
    clip.ClipImage = source;
    clip.ClipFirstRow = first;
    clip.ClipCount = count;
    clip.ClipSlot = document.At(15);
    clip.ClipKind = kind;
    clip.ClipValid = 1; // ClipHasSts stays that of the last Copy

    for (int r = first; r <= first + count - 1; ++r) {
        document.SetRow(r - 1, document.Row(r - 1).substr(0, static_cast<std::size_t>(empty + 1)) + std::string(16, ' '));
    }
    if (IsStyle(kind)) {
        CutStyles(globals, source, first, count);
    } else {
        CutItems(globals, source, first, count);
    }
    document.Set(6, 1);
    if (kind == 21 && PlainCount(globals.BuildImage) == 0) {
        document.Set(9, 0);
    }
    document.image = globals.BuildImage; // that of an earlier command where no pass was made
}

} // namespace

std::string PlainCut(PlainGlobals &globals, PlainDocument &document)
{
    if (document.image.empty()) {
        return "no image";
    }
    const PlainDocument before = document;
    const PlainClipboard clipBefore = globals.clipboard;
    try {
        CutSteps(globals, document);
        return "";
    } catch (const PlainStop &stop) {
        document = before;
        globals.clipboard = clipBefore;
        return stop.why;
    }
}

void PlainPrint(PlainGlobals &globals, const PlainDocument &document)
{
    if (IsStyle(document.At(1))) {
        globals.clipboard.ClipImage = document.image;
        PlainShownIndex(document.image, globals.ItemIndex);
        globals.clipboard.ClipValid = 0;
    }
}

namespace {

// May the clipboard's run go into a document like this.
bool Compatible(const PlainClipboard &clip, const PlainDocument &document)
{
    const int kind = document.At(1);
    const bool sameSts = document.At(8) == clip.ClipHasSts;
    switch (clip.ClipKind) {
    case 14:
    case 18:
    case 19:
        return IsProgram(kind);
    case 20:
        return (kind == 20 && sameSts) || (kind == 21 && (document.At(9) != 1 || sameSts));
    case 21:
        return IsStyle(kind) && sameSts;
    case 22:
    case 23:
        return IsPerformance(kind);
    default:
        return true;
    }
}

} // namespace

PlainMenu PlainMenuOf(const PlainGlobals &globals, const PlainDocument &document)
{
    PlainMenu menu;
    const int kind = document.At(1);
    if (!IsProgram(kind) && !IsStyle(kind) && !IsPerformance(kind)) {
        return menu;
    }
    if (IsStyle(kind) && document.At(10) == 0) { // the list shows STS
        return menu;
    }
    const int last = PlainRowCount(document) - 1;
    int r1 = 0;
    while (r1 <= last && !document.Selected(r1)) {
        r1 = r1 + 1;
    }
    if (r1 > last) {
        return menu;
    }
    int r2 = r1;
    while (r2 < last && document.Selected(r2 + 1)) {
        r2 = r2 + 1;
    }
    bool someExactlyEmpty = false;
    bool someOccupied = false;
    for (int r = r1; r <= r2; ++r) {
        someExactlyEmpty = someExactlyEmpty || PlainExactlyEmpty(document, r);
        someOccupied = someOccupied || PlainOccupied(document, r);
    }
    const bool user1 = document.At(15) == 9;
    menu.copy = !someExactlyEmpty;
    menu.cut = !someExactlyEmpty && !user1;
    menu.paste = globals.clipboard.ClipValid != 0 && Compatible(globals.clipboard, document) && !someOccupied && !user1;
    return menu;
}

} // namespace velluto::test
