#pragma once

// A folder of a test's own, gone with the object and all that is in it.

#include "mfc/CString.h"
#include "tests/support/DrawingText.h"

#include <windows.h>

#include <shellapi.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

class CTestFolder {
public:
    CTestFolder()
    {
        char sTemp[MAX_PATH], sName[MAX_PATH], sLong[MAX_PATH];
        if (::GetTempPathA(sizeof sTemp, sTemp) == 0 || ::GetTempFileNameA(sTemp, "tsk", 0, sName) == 0 ||
            !::DeleteFileA(sName) || !::CreateDirectoryA(sName, nullptr) ||
            ::GetLongPathNameA(sName, sLong, sizeof sLong) == 0)
            throw std::runtime_error("no folder for the test can be made in the temporary one");
        m_sPath = sLong;
        m_sPath += '\\';
    }
    ~CTestFolder()
    {
        m_sPath.back() = '\0';  // a list of one
        SHFILEOPSTRUCTA removal = {};
        removal.wFunc = FO_DELETE;
        removal.pFrom = m_sPath.c_str();
        removal.fFlags = FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOERRORUI;
        ::SHFileOperationA(&removal);
    }
    CTestFolder(const CTestFolder&) = delete;
    CTestFolder& operator=(const CTestFolder&) = delete;

    // The full path of a name in the folder; without one that of the folder, with a backslash.
    std::string path(const std::string& sName = "") const { return m_sPath + sName; }

    // Makes the folders of a name; a name that ends in a backslash is a folder.
    void folder(const std::string& sName) const
    {
        for (std::size_t at = sName.find('\\'); at != std::string::npos; at = sName.find('\\', at + 1))
            ::CreateDirectoryA(path(sName.substr(0, at)).c_str(), nullptr);
    }

    // Writes the bytes, with the file's folders; gives the full path.
    std::string write(const std::string& sName, const std::string& sBytes = "") const
    {
        folder(sName);
        std::ofstream(path(sName), std::ios::binary) << sBytes;
        return path(sName);
    }
    // A drawing with nothing in it.
    std::string writeDrawing(const std::string& sName) const { return write(sName, DrawingText().str()); }

    static std::string read(const std::string& sFile)
    {
        std::ostringstream bytes;
        bytes << std::ifstream(sFile, std::ios::binary).rdbuf();
        return bytes.str();
    }
    static std::string read(const CString& sFile) { return read(std::string(sFile)); }

private:
    std::string m_sPath;
};
