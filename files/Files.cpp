#include "files/Files.h"

#include "files/frmPcgUN.h"

namespace velluto {

FilesState::FilesState(Modulo1 &core) : app(core) {}

FilesState::~FilesState() = default;

} // namespace velluto
