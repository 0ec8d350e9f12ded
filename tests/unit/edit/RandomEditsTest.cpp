// Random edits on random files: an item is neither lost nor doubled, whatever is not edited keeps every byte, the list
// shows what the image holds, and a saved file comes back with the same rows. What an edit does to each byte, oddities
// included, stands in the tests of Copy, Cut and Paste.
#include "unit/edit/EditedFiles.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace velluto::test {
namespace {

struct Held {
    std::string name;
    std::string body;
    auto operator<=>(const Held &) const = default;
    friend void PrintTo(const Held &held, std::ostream *out) { *out << held.name << " '" << held.body << "'"; }
};
// What each occupied row stands for, by 0-based slot: one item, or a Style and its STS.
using Contents = std::map<int, std::multiset<Held>>;

enum class Type { Program, Style, Performance };

struct Document {
    DocumentForm *form;
    Contents contents;
    bool odd = false; // after a Cut or Paste that is odd on purpose: the bodies no longer fit their entries
};

std::size_t Number(const Bytes &image, std::size_t offset, std::size_t bytes)
{
    std::size_t number = 0;
    for (std::size_t i = 0; i < bytes; ++i) {
        number = number * 256 + image.at(offset + i);
    }
    return number;
}

// Reads an image by its own directory and index, and holds that they agree with each other and with its length.
Contents Read(const Bytes &image, bool odd)
{
    Contents contents;
    if (image.empty()) { // of a new window
        return contents;
    }
    const std::size_t count = Number(image, 34, 2) / 24;
    const std::size_t index = image.size() - 8 - 4 * count;
    EXPECT_EQ(Number(image, 5, 3), image.size() - 8) << "the length in the head";
    EXPECT_EQ(image.back(), count + 1) << "the count at the end";
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = 36 + 24 * i;
        const std::size_t start = Number(image, index + 4 * i, 4);
        const std::size_t end = i + 1 < count ? Number(image, index + 4 * i + 4, 4) : index - 16;
        EXPECT_TRUE(odd || i > 0 || start == 36 + 24 * count) << "bodies begin behind the directory";
        if (!odd && (start > end || end > index - 16)) {
            ADD_FAILURE() << "item " << i << " lies outside";
            return contents;
        }
        const std::string name(image.begin() + static_cast<std::ptrdiff_t>(entry), image.begin() + static_cast<std::ptrdiff_t>(entry + 16));
        const auto from = image.begin() + static_cast<std::ptrdiff_t>(start);
        contents[image.at(entry + 20)].insert(
            {name.c_str(), odd ? "" : std::string(from, from + static_cast<std::ptrdiff_t>(end - start))});
    }
    return contents;
}

// A program in which one seed has its documents, all of one type, and edits them.
class Seed : public EditTest {
public:
    explicit Seed(unsigned seed, Type type) : random_(seed), type_(type), pairs_(Below(3) > 0) {}
    void TestBody() override {}

    void Play()
    {
        for (std::size_t i = 0; i < 3; ++i) {
            documents_.push_back(OpenOne());
        }
        documents_.push_back({&NewOne(), {}});
        for (int edits = 0; edits < 25 && !HasFailure(); ++edits) {
            Document &document = documents_.at(static_cast<std::size_t>(Below(4)));
            Edit(document);
            if (document.odd) {
                ComeBack(document);
                document = OpenOne();
            }
        }
        for (const Document &document : documents_) {
            ComeBack(document);
        }
    }

private:
    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    int Places() const { return type_ == Type::Program ? 64 : type_ == Type::Style ? 16 : 8; }
    // Characters of a row in front of its name.
    std::size_t Head() const { return type_ == Type::Program ? 5 : type_ == Type::Style ? 4 : 3; }

    // Letters that no other item has, and a body that begins with them.
    Lettered NewItem(int slot)
    {
        const std::string name = std::string(1, static_cast<char>('A' + Below(26))) + std::to_string(++made_);
        return {name, slot, name + std::string(static_cast<std::size_t>(Below(40)), '.')};
    }

    Document OpenOne()
    {
        const std::string name = "file" + std::to_string(++opened_);
        std::vector<Lettered> items;
        const bool grouped = Below(2) == 0;
        std::vector<Lettered> behind; // the STS of a grouped file
        const int dense = 1 + Below(4);
        for (int slot = 0; slot < Places(); ++slot) {
            if (Below(5) < dense || (slot < 2 && type_ == Type::Style && !pairs_)) { // one Style without STS shows no row
                items.push_back(NewItem(slot));
                if (type_ == Type::Style && pairs_) {
                    (grouped ? behind : items).push_back(NewItem(slot));
                }
            }
        }
        items.insert(items.end(), behind.begin(), behind.end());
        DocumentForm &form = type_ == Type::Program ? static_cast<DocumentForm &>(Pcg(name + ".pcg", items))
                             : type_ == Type::Style ? static_cast<DocumentForm &>(Style(name + ".sty", items))
                                                    : Performance(name + ".prf", items);
        return {&form, Read(BytesOf(form.Tag.image), false)};
    }
    DocumentForm &NewOne()
    {
        return type_ == Type::Program ? static_cast<DocumentForm &>(NewPcg64())
               : type_ == Type::Style ? static_cast<DocumentForm &>(NewSty())
                                      : NewPrf();
    }

    // The run of rows from a random one on that are all occupied, or all empty; at most `most` of them.
    Rows Run(const Document &document, bool occupied, int most)
    {
        Rows rows;
        for (int row = Below(Places()); row < Places() && static_cast<int>(rows.size()) < most; ++row) {
            if (document.contents.contains(row) == occupied) {
                rows.push_back(row);
            } else if (!rows.empty()) {
                break;
            }
        }
        return rows;
    }

    // The window goes, and the same rows come back from its file.
    void ComeBack(const Document &document)
    {
        const bool shown = type_ != Type::Style || pairs_ || document.contents.size() > 1;
        if (!HasFailure() && shown && !document.contents.empty()) {
            ExpectTheSameAfterSaveAndOpen(*document.form);
            EXPECT_TRUE(run.Close(*app.children.Active()));
        }
    }

    void Edit(Document &document)
    {
        const std::vector<Everything> before = AllDocuments();
        const int what = Below(4);
        bool changed = false;
        Rows rows = Run(document, what < 2, 1 + Below(6));
        if (rows.empty()) {
            return;
        }
        Pick(*document.form, rows);
        if (what == 0) {
            ASSERT_TRUE(run.Choose(app.frame.mnuCopia));
            Clip(document, rows);
        } else if (what == 1) {
            ASSERT_TRUE(run.Choose(app.frame.mnuTaglia));
            Clip(document, rows);
            Take(document, rows);
            changed = true;
        } else if (!LosesTheLastSts(document, rows.front()) && run.Choose(app.frame.mnuIncolla)) {
            Put(document, rows.front());
            changed = true;
        }
        SCOPED_TRACE("edit " + std::to_string(what) + " of " + document.form->FullName() + " at row " + std::to_string(rows.front()));
        if (what > 1 && document.odd && std::ranges::find(before, All(*document.form)) != before.end()) {
            return; // it would have read outside the image, and has left all as it was
        }
        Check(before, changed ? &document : nullptr);
    }

    // What the image should hold; of an odd one the bodies are not asked.
    static Contents Expected(const Document &document)
    {
        Contents contents = document.contents;
        for (auto &[slot, items] : contents) {
            std::multiset<Held> asked;
            for (const Held &item : items) {
                asked.insert({item.name, document.odd ? "" : item.body});
            }
            items = asked;
        }
        return contents;
    }

    void Clip(const Document &document, const Rows &rows)
    {
        clip_.clear();
        for (const int row : rows) {
            clip_.push_back(document.contents.at(row));
        }
    }

    void Take(Document &document, const Rows &rows)
    {
        // The directory is copied past its end where Programs or Performances stand in front.
        document.odd = type_ != Type::Style && document.contents.begin()->first < rows.front();
        for (const int row : rows) {
            document.contents.erase(row);
        }
    }

    // The clipboard's rows go into the gap that begins with that row, as many as there is room for.
    void Put(Document &document, int first)
    {
        int room = 0;
        while (first + room < Places() && !document.contents.contains(first + room)) {
            ++room;
        }
        const auto take = std::min(static_cast<std::size_t>(room), clip_.size());
        const bool before = document.contents.upper_bound(first) != document.contents.end();
        document.odd = type_ == Type::Style ? document.contents.empty() && clip_.front().size() == 1 : before || take < clip_.size();
        for (std::size_t i = 0; i < take; ++i) {
            document.contents[first + static_cast<int>(i)] = clip_[i];
        }
    }

    // Among grouped Styles, a place directly in front of the last one is one short on purpose.
    bool LosesTheLastSts(const Document &document, int row) const
    {
        const Contents &contents = document.contents;
        return type_ == Type::Style && pairs_ && contents.size() > 1 && contents.rbegin()->first > row &&
               std::next(contents.rbegin())->first < row;
    }

    std::vector<Everything> AllDocuments()
    {
        std::vector<Everything> all;
        for (const Document &document : documents_) {
            all.push_back(All(*document.form));
        }
        return all;
    }

    void Check(const std::vector<Everything> &before, const Document *changed)
    {
        for (std::size_t i = 0; i < documents_.size(); ++i) {
            const Document &document = documents_[i];
            if (&document != changed) {
                EXPECT_EQ(All(*document.form), before[i]) << document.form->FullName() << " is not edited";
                continue;
            }
            EXPECT_EQ(Read(BytesOf(document.form->Tag.image), document.odd), Expected(document));
            EXPECT_EQ(Modified(*document.form), 1);
            const Texts rows = Drawn(document.form->List1);
            for (int row = 0; row < Places(); ++row) {
                const std::string &text = rows.at(static_cast<std::size_t>(row));
                const std::string name = text.size() > Head() ? text.substr(Head(), 16) : "";
                const auto held = document.contents.find(row);
                const bool shown = held == document.contents.end()
                                       ? name.empty()
                                       : std::ranges::any_of(held->second, [&](const Held &item) { return name.starts_with(item.name); });
                EXPECT_TRUE(shown) << "row " << row << ": " << text;
            }
        }
    }

    std::mt19937 random_;
    Type type_;
    bool pairs_; // Styles come with their STS
    int made_ = 0;
    int opened_ = 0;
    std::vector<Document> documents_;
    std::vector<std::multiset<Held>> clip_;
};

class RandomEdits : public testing::TestWithParam<Type> {};

TEST_P(RandomEdits, LoseNothingAndTouchNothingElse)
{
    for (unsigned seed = 0; seed < 60 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Seed(seed, GetParam()).Play();
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RandomEdits, testing::Values(Type::Program, Type::Style, Type::Performance));

} // namespace
} // namespace velluto::test
