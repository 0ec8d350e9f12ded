// The program and the plain editor side by side: each step is done to both, and what they then hold is compared.
#pragma once

#include "unit/edit/PlainEditor.h"
#include "unit/edit/RandomEdits.h"
#include "unit/support/TestProgram.h"

#include "files/DocumentForm.h"
#include "files/frmStyUN.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace velluto::test {

class EditStage {
public:
    explicit EditStage(const EditSequence &sequence);

    // Does the step. What differs afterwards, or nothing. A step on a document that is not there does nothing.
    std::optional<std::string> Do(const EditStep &step);
    // What has been done so far, one line a step.
    [[nodiscard]] const std::vector<std::string> &Log() const { return log_; }

private:
    struct Pair {
        DocumentForm *form;
        PlainDocument plain;
    };

    void Open(std::size_t number);
    DocumentForm &Show(const RandomDocument &document, const std::string &path);
    PlainDocument PlainOf(const RandomDocument &document, const PlainOpened &opened);
    void OpenFile(const RandomDocument &document, const std::string &path);
    void Close(std::size_t document);
    void Select(Pair &pair, const EditStep &step);
    std::optional<std::string> Command(Pair &pair, Action action);
    // The menu entry or key does what the model says it may do.
    std::optional<std::string> Choose(MenuEntry &entry, bool offered);
    void Tell(const std::string &stop);
    void ClickSts(Pair &pair);
    std::optional<std::string> Difference();
    std::optional<std::string> MenuDifference();

    const EditSequence &sequence_;
    TestProgram run_;
    FilesState &files_ = run_.program.files;
    PlainGlobals plain_;
    std::map<std::size_t, Pair> pairs_; // by the number of the document
    std::vector<bool> wasOpen_;         // a Style file's slot never comes back
    std::vector<std::string> log_;
};

} // namespace velluto::test
