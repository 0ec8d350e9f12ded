// What differs between the program and the plain editor, in words.
#pragma once

#include "unit/edit/PlainEditor.h"

#include "files/DocumentForm.h"
#include "files/Files.h"

#include <optional>
#include <string>

namespace velluto::test {

// A document's prefix, rows, selection, STS button and image.
std::optional<std::string> DocumentDifference(const std::string &name, const DocumentForm &form, const PlainDocument &plain);
// What lives for the whole run: clipboard, tables, the count of the last Cut, the image that was built last.
std::optional<std::string> RunDifference(const FilesState &files, const PlainGlobals &plain);

} // namespace velluto::test
