#include "host/drawing/Database.h"
#include "host/drawing/Paths.h"
#include "library/system/Handles.h"

#include <cstring>

namespace host {

namespace {

constexpr std::size_t kTemporaryName = 14;  // what the system may add to a folder

ULONGLONG ticks(const FILETIME& time) { return ULARGE_INTEGER{{time.dwLowDateTime, time.dwHighDateTime}}.QuadPart; }

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

// The system's name for a temporary file of ours: "dwg", up to four hexadecimal digits, ".tmp".
bool isTemporary(const char* sName)
{
    const std::size_t digits = std::strspn(sName + 3, "0123456789ABCDEFabcdef");
    return digits != 0 && digits <= 4 && ::lstrcmpiA(sName + 3 + digits, ".tmp") == 0;
}

// What a save left behind that was ended from outside: of a day ago, for others may be saving now.
void removeLeftovers(const std::string& sFolder)
{
    constexpr ULONGLONG kDay = 24ULL * 60 * 60 * 10'000'000;
    FILETIME now;
    GetSystemTimeAsFileTime(&now);
    WIN32_FIND_DATAA found;
    const UniqueFind search(FindFirstFileA((sFolder + "dwg*.tmp").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileA(search.get(), &found) != FALSE)
        if (isTemporary(found.cFileName) && ticks(found.ftLastWriteTime) + kDay < ticks(now))
            DeleteFileA((sFolder + found.cFileName).c_str());
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
    if (file().isBinary() && sPath.size() > 4 && ::lstrcmpiA(sPath.c_str() + sPath.size() - 4, ".dxf") == 0)
        fail(sPath, "a binary drawing is not written as DXF");
    const std::string sBytes = file().bytes();
    const std::string sFolder = folderOf(sPath);
    if (sPath.size() >= MAX_PATH || sFolder.size() > MAX_PATH - kTemporaryName)
        fail(sPath, "the path is too long");
    char temporary[MAX_PATH] = "";
    if (GetTempFileNameA(sFolder.c_str(), "dwg", 0, temporary) == 0) {
        const DWORD code = GetLastError();
        fail(sPath, code == ERROR_DIRECTORY || code == ERROR_PATH_NOT_FOUND ? "the folder does not exist"
                                                                            : FileError::systemReason(code));
    }
    try {
        writeAll(temporary, sBytes);
        if (!MoveFileExA(temporary, sPath.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            fail(sPath, FileError::systemReason(GetLastError()));
    } catch (const FileError& error) {
        DeleteFileA(temporary);
        fail(sPath, error.reason());
    }
    removeLeftovers(sFolder);
}

}  // namespace host
