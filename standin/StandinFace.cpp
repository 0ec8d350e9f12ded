#include "standin/StandinFace.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kTwipsPerPixel = 15; // at 96 dots an inch

} // namespace

int StandinFace::MessageBox(const std::string &title, const std::string &text, int style)
{
    int answer = style == Box::kNotice ? Box::kOk : Box::kCancel;
    if (!answers.empty()) {
        const bool fits = (style == Box::kNotice) == (answers.front() == Box::kOk);
        if (fits) {
            answer = answers.front();
        }
        answers.pop_front();
    }
    boxes.push_back({title, text, style, answer});
    return answer;
}

FileChoice StandinFace::ShowFileDialog(const FileDialog &dialog)
{
    dialogs.push_back(dialog);
    if (choices.empty()) {
        return {};
    }
    FileChoice choice = choices.front();
    choices.pop_front();
    return choice;
}

void StandinFace::ShowModal(Form &form)
{
    form.Load();
    if (onModal) {
        onModal(form);
    }
    form.Unload();
}

Size StandinFace::MeasureA(const Font &font)
{
    // Liberation Mono: 0.6 em wide; a row as high as its glyphs with one pixel to spare.
    const int emPixels = (font.size * 96 + 36) / 72;
    return {(emPixels * 6 + 5) / 10 * kTwipsPerPixel, (emPixels + 1) * kTwipsPerPixel};
}

Size StandinFace::ChildFrame()
{
    return {8 * kTwipsPerPixel, 30 * kTwipsPerPixel};
}

Size StandinFace::Workspace()
{
    return {1000 * kTwipsPerPixel, 650 * kTwipsPerPixel};
}

int StandinFace::LabelWidth(const std::string &text)
{
    // One width for every character; the bytes that go on with a character of UTF-8 are none of their own.
    const auto characters = std::ranges::count_if(text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; });
    return static_cast<int>(characters) * 6 * kTwipsPerPixel;
}

} // namespace velluto
