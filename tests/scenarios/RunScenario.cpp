// Runs one scenario: a driver script with the expected answers beside its commands. Each command line may be followed
// by a line "> {...}" with what its answer must hold; without one the answer must be a good one. Lines that begin with
// "!" put files on the disk or look at them (Props.h). In an expectation $HERE stands for the scenario's own temporary folder, and
// each "/" behind it for the system's separator.
#include "app/Paths.h"
#include "driver/Commands.h"
#include "driver/Names.h"
#include "driver/Words.h"
#include "scenarios/Props.h"
#include "scenarios/Subset.h"
#include "unit/support/TestProgram.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <optional>

namespace velluto::scenarios {

namespace {

constexpr std::string_view kHere = "$HERE";

// In each text of the expectation.
void PutHere(driver::Json &expected, const std::string &folder)
{
    if (expected.is_structured()) {
        for (driver::Json &inner : expected) {
            PutHere(inner, folder);
        }
    } else if (expected.is_string()) {
        auto &text = expected.get_ref<std::string &>();
        if (const std::size_t at = text.find(kHere); at != std::string::npos) {
            text.replace(at, kHere.size(), folder);
            std::replace(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(), '/', kPathSeparator);
        }
    }
}

class Scenario {
public:
    explicit Scenario(std::string folder) : folder_(std::move(folder)) {}

    void Line(const std::string &line, int number)
    {
        if (line.starts_with('>')) {
            driver::Json expected = driver::Json::parse(line.substr(1));
            PutHere(expected, folder_);
            Compare(expected);
            return;
        }
        Finish();
        if (driver::IsRemark(line)) {
            return;
        }
        command_ = line;
        number_ = number;
        if (line.starts_with('!')) {
            Prop(driver::SplitWords(line.substr(1)));
        } else {
            answer_ = driver::Run(session_, line);
        }
    }
    // A command without an expectation must have been a good one.
    void Finish()
    {
        if (answer_) {
            Compare({{"ok", true}});
        }
    }
    [[nodiscard]] int Failures() const { return failures_; }
    void Fail(const std::string &why)
    {
        std::cerr << "line " << number_ << ", " << command_ << ": " << why << '\n';
        ++failures_;
    }

private:
    // "edited WINDOW" marks a document as changed, as an edit does; every other prop lies on the disk.
    void Prop(const driver::Words &words)
    {
        if (words.size() == 2 && words[0] == "edited") {
            driver::FindWindow(session_.Program(), words[1]).Tag.Set(TagPosition::Modified, 1);
        } else {
            UseProps(words);
        }
    }

    void Compare(const driver::Json &expected)
    {
        if (!answer_) {
            Fail("an expectation without an answer");
            return;
        }
        driver::Json whole = expected;
        if (!whole.contains("ok")) {
            whole["ok"] = true;
        }
        if (const std::string difference = Difference(whole, *answer_); !difference.empty()) {
            Fail(difference + "\n    " + driver::OneLine(*answer_).substr(0, 1000));
        }
        answer_.reset();
    }

    std::string folder_;
    driver::Session session_;
    std::optional<driver::Json> answer_; // of the last command, until it has been compared
    std::string command_;
    int number_ = 0;
    int failures_ = 0;
};

int Run(const char *script)
{
    std::ifstream file(script);
    if (!file) {
        std::cerr << "cannot read " << script << '\n';
        return 1;
    }
    const test::TempFolder folder;
    std::filesystem::current_path(folder.Path());
    Scenario scenario(std::filesystem::current_path().string());
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        try {
            scenario.Line(line, number);
        } catch (const std::exception &failure) {
            scenario.Fail(failure.what());
        }
    }
    scenario.Finish();
    return scenario.Failures() == 0 ? 0 : 1;
}

} // namespace

} // namespace velluto::scenarios

int main(int count, char **words)
{
    if (count != 2) {
        std::cerr << "usage: run_scenario SCRIPT\n";
        return 1;
    }
    return velluto::scenarios::Run(words[1]);
}
