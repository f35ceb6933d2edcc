#include "host/drawing/DxfFile.h"
#include "host/drawing/FileError.h"
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

std::unique_ptr<DxfFile> DxfFile::read(const std::string& sPath)
{
    const DWORD attributes = GetFileAttributesA(sPath.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        fail(sPath, "a folder, not a file");
    const UniqueHandle file(CreateFileA(sPath.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                        FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file)
        fail(sPath, FileError::systemReason(GetLastError()));
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size))
        fail(sPath, FileError::systemReason(GetLastError()));
    if (size.QuadPart > 0x3FFFFFFF)
        fail(sPath, "too large to be read");
    std::string sBytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD count = 0;
    if (!ReadFile(file.get(), sBytes.data(), static_cast<DWORD>(sBytes.size()), &count, nullptr))
        fail(sPath, FileError::systemReason(GetLastError()));
    sBytes.resize(count);
    return parse(std::move(sBytes), sPath);
}

std::string DxfFile::bytes() const
{
    if (m_contentsNotRead)
        return m_notRead;
    std::size_t size = 0;
    for (const DxfRecord* p = m_first; p != nullptr; p = p->next())
        size += p->text().size();
    std::string sBytes;
    sBytes.reserve(size);
    for (const DxfRecord* p = m_first; p != nullptr; p = p->next())
        sBytes += p->text();
    return sBytes;
}

void DxfFile::write(const std::string& sPath) const
{
    const DWORD attributes = GetFileAttributesA(sPath.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        fail(sPath, "a folder, not a file");
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        fail(sPath, "the file is read-only");
    char temporary[MAX_PATH] = "";
    if (GetTempFileNameA(folderOf(fullPath(sPath)).c_str(), "dwg", 0, temporary) == 0) {
        const DWORD code = GetLastError();
        fail(sPath, code == ERROR_DIRECTORY || code == ERROR_PATH_NOT_FOUND ? "the folder does not exist"
                                                                            : FileError::systemReason(code));
    }
    try {
        writeAll(temporary, bytes());
        if (!MoveFileExA(temporary, sPath.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            fail(sPath, FileError::systemReason(GetLastError()));
    } catch (const FileError& error) {
        DeleteFileA(temporary);
        fail(sPath, error.reason());
    }
}

}  // namespace host
