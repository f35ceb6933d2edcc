#include "host/drawing/Database.h"
#include "host/drawing/Paths.h"
#include "library/system/Handles.h"

namespace host {

namespace {

[[noreturn]] void fail(const std::string& sPath, const std::string& sReason) { throw FileError(sPath, 0, sReason); }

void writeAll(const std::string& sPath, const std::string& sBytes)
{
    const UniqueHandle file(
        CreateFileA(sPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (!file || !WriteFile(file.get(), sBytes.data(), static_cast<DWORD>(sBytes.size()), &written, nullptr) ||
        written != sBytes.size() || !FlushFileBuffers(file.get()))
        fail(sPath, FileError::systemReason(GetLastError()));
}

}  // namespace

void Database::saveCopy(const std::string& sName) const
{
    const std::string sPath = fullPath(sName);
    const DWORD attributes = GetFileAttributesA(sPath.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        fail(sPath, "a folder, not a file");
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        fail(sPath, "the file is read-only");
    char temporary[MAX_PATH] = "";
    if (GetTempFileNameA(folderOf(sPath).c_str(), "dwg", 0, temporary) == 0) {
        const DWORD code = GetLastError();
        fail(sPath, code == ERROR_DIRECTORY || code == ERROR_PATH_NOT_FOUND ? "the folder does not exist"
                                                                            : FileError::systemReason(code));
    }
    try {
        writeAll(temporary, file().bytes());
        if (!MoveFileExA(temporary, sPath.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            fail(sPath, FileError::systemReason(GetLastError()));
    } catch (const FileError& error) {
        DeleteFileA(temporary);
        fail(sPath, error.reason());
    }
}

}  // namespace host
