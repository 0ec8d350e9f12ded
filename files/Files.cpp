#include "files/Files.h"

#include "files/frmPcgUN.h"
#include "files/frmPrfUN.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUN.h"
#include "files/frmStyUserAll.h"

namespace velluto {

FilesState::FilesState(Modulo1 &core) : app(core) {}

FilesState::~FilesState() = default;

} // namespace velluto
