// A file image in pieces: what it reads as, what it shares, and what it lets go.
#include "view/FileImage.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace velluto::test {
namespace {

FileImage ImageOfText(const std::string &text)
{
    return FileImage(std::span(reinterpret_cast<const std::uint8_t *>(text.data()), text.size()));
}

std::string All(const FileImage &image)
{
    return image.Text(0, image.size());
}

TEST(FileImage, AnEmptyOneHasNoBytesAndNoRuns)
{
    for (const FileImage &image : {FileImage(), ImageOfText(""), FileImage(SharedBytes(0))}) {
        EXPECT_TRUE(image.empty());
        EXPECT_EQ(image.size(), 0U);
        EXPECT_EQ(All(image), "");
        EXPECT_TRUE(image.View().empty());
        EXPECT_TRUE(image.Runs().empty());
    }
}

TEST(FileImage, ALargeBlockBeginsWhereALargePageOfMemoryCan)
{
    for (const std::size_t size : {kLargePage, kLargePage + 1, 3 * kLargePage}) {
        SharedBytes block(size);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block.View().data()) % kLargePage, 0U);
        block.Writable().back() = 7;
        const FileImage image(block);
        block = {};
        EXPECT_EQ(image[size - 1], 7) << "shared, and not gone with its maker";
    }
}

TEST(FileImage, PiecesReadAsOneImage)
{
    const FileImage one = ImageOfText("abcdef");
    const FileImage two = ImageOfText("ABC");
    FileImage image;
    image.Append(one, 4, 2);
    image.Append(two, 0, 3);
    image.Append(one, 1, 1);
    EXPECT_EQ(All(image), "efABCb");
    EXPECT_EQ(image[1], 'f');
    EXPECT_EQ(image[2], 'A');
    EXPECT_EQ(image[5], 'b');
    EXPECT_EQ(image.Text(1, 3), "fAB");
    EXPECT_EQ(image.View()[4], 'C');
    EXPECT_EQ(image.View().Text(3, 3), "BCb");
}

TEST(FileImage, QuotingCopiesNothing)
{
    const FileImage one = ImageOfText("abcdef");
    FileImage image;
    image.Append(one, 2, 3);
    image.Append(ImageOfText("-"), 0, 1);
    FileImage again;
    again.Append(image, 1, 3);
    ASSERT_EQ(again.Runs().size(), 2U);
    EXPECT_EQ(again.Runs().front().data(), one.Runs().front().data() + 3);
}

TEST(FileImage, PiecesThatFollowOneAnotherInTheirBlockAreOne)
{
    const FileImage one = ImageOfText("abcdef");
    FileImage image;
    image.Append(one, 0, 2);
    image.Append(one, 2, 3);
    image.Append(one, 5, 0);
    EXPECT_EQ(image.Runs().size(), 1U);
    image.Append(one, 0, 1);
    EXPECT_EQ(image.Runs().size(), 2U);
    EXPECT_EQ(All(image), "abcdea");
}

TEST(FileImage, ItMayQuoteItself)
{
    FileImage image = ImageOfText("abc");
    const FileImage before = image;
    image.Append(before, 1, 2);
    image.Append(before, 0, 3);
    EXPECT_EQ(All(image), "abcbcabc");
    EXPECT_EQ(All(before), "abc");
}

TEST(FileImage, RandomQuotesReadAsTheTextsTheyAreMadeOf)
{
    std::mt19937 random(1); // NOLINT: the same images in every run
    std::vector<std::pair<FileImage, std::string>> known{{ImageOfText("The first one"), "The first one"}, {FileImage(), ""}};
    for (int round = 0; round < 500; ++round) {
        FileImage image;
        std::string text;
        for (std::size_t piece = random() % 6; piece > 0; --piece) {
            const auto &[from, meant] = known[random() % known.size()];
            const std::size_t offset = random() % (meant.size() + 1);
            const std::size_t length = random() % (std::min<std::size_t>(meant.size() - offset, 40) + 1);
            image.Append(from, offset, length);
            text += meant.substr(offset, length);
        }
        if (random() % 4 == 0) {
            const std::string fresh(1 + random() % 20, static_cast<char>(random()));
            image.Append(ImageOfText(fresh), 0, fresh.size());
            text += fresh;
        }
        ASSERT_EQ(All(image), text);
        ASSERT_EQ(All(image.Thrifty()), text);
        std::string runs;
        for (const auto &run : image.Runs()) {
            ASSERT_FALSE(run.empty());
            runs.append(run.begin(), run.end());
        }
        ASSERT_EQ(runs, text);
        for (std::size_t i = 0; i < text.size(); ++i) {
            ASSERT_EQ(image.View()[i], static_cast<std::uint8_t>(text[i])) << i;
        }
        known.emplace_back(random() % 2 == 0 ? image : image.Thrifty(), text);
    }
}

TEST(FileImage, WhatIsMostlyItsOwnStaysShared)
{
    const FileImage large = ImageOfText(std::string(1000, 'x'));
    FileImage image;
    image.Append(large, 0, 250);
    image.Append(large, 600, 250);
    EXPECT_EQ(image.Thrifty().Runs().front().data(), large.Runs().front().data());
}

TEST(FileImage, ASmallPartKeepsNoLargeBlockAlive)
{
    const FileImage large = ImageOfText(std::string(1000, 'x'));
    FileImage image;
    image.Append(large, 0, 200);
    image.Append(large, 600, 200);
    image.Append(ImageOfText("y"), 0, 1);
    const FileImage own = image.Thrifty();
    EXPECT_EQ(All(own), All(image));
    ASSERT_EQ(own.Runs().size(), 1U);
    EXPECT_NE(own.Runs().front().data(), large.Runs().front().data());
}

} // namespace
} // namespace velluto::test
