#include "platform/posix/ErrorNumbers.h"

#include <cerrno>

namespace velluto {

RuntimeError FromErrno(int code)
{
    switch (code) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
        return {FileError::kPathNotFound};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return {FileError::kPathFileAccess};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {FileError::kDiskFull};
    case ENXIO:
    case ENODEV:
    case ENOMEDIUM:
        return {FileError::kDiskNotReady};
    case EIO:
        return {FileError::kDeviceInputOutput};
    default:
        return {FileError::kOther};
    }
}

} // namespace velluto
