#include "dxf/FileError.h"

#include <windows.h>

namespace dxf {

namespace {

std::string message(const std::string& sFile, std::size_t line, const std::string& sReason)
{
    return sFile + (line == 0 ? std::string() : ", line " + std::to_string(line)) + ": " + sReason;
}

}  // namespace

FileError::FileError(const std::string& sFile, std::size_t line, const std::string& sReason)
    : std::runtime_error(message(sFile, line, sReason)), m_sFile(sFile), m_line(line), m_sReason(sReason)
{
}

std::string FileError::systemReason(unsigned long code)
{
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
        return "file not found";
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return "access denied";
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return "in use by another program";
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_DEV_TYPE:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETWORK_UNREACHABLE:
    case ERROR_NETNAME_DELETED:
    case ERROR_UNEXP_NET_ERR:
    case ERROR_REM_NOT_LIST:
        return "the network share cannot be reached";
    case ERROR_NOT_READY:
        return "the drive is not ready";
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
        return "the path is longer than Windows programs can open";
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return "disk full";
    default:
        return "system error " + std::to_string(code);
    }
}

}  // namespace dxf
