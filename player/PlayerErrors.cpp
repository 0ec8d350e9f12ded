#include "player/PlayerErrors.h"

namespace velluto {

std::string PreparedText(const frmMIDIPlayer &form, std::string_view path, int word)
{
    return std::string(path) + " " + form.app.messages.Text(word);
}

void HandlePlayerError(frmMIDIPlayer &form, RuntimeError error, const std::string &preparedText)
{
    if (error.number == FileError::kFileNotFound) {
        form.state.NotFound = true;
    } else if (error.number == FileError::kPathNotFound) {
        form.app.messages.ShowMessage(MessageNo::FolderNotFound, preparedText, preparedText);
    }
}

} // namespace velluto
