#pragma once

// A folder of a test's own, gone with the object and all that is in it.

#include "mfc/CString.h"
#include "tests/support/DrawingText.h"

#include <windows.h>

#include <fstream>
#include <sstream>
#include <string>

class CTestFolder {
public:
    CTestFolder()
    {
        char sTemp[MAX_PATH], sName[MAX_PATH], sLong[MAX_PATH];
        ::GetTempPathA(sizeof sTemp, sTemp);
        ::GetTempFileNameA(sTemp, "tsk", 0, sName);  // makes the name ours
        ::DeleteFileA(sName);
        ::CreateDirectoryA(sName, nullptr);
        m_sPath = ::GetLongPathNameA(sName, sLong, sizeof sLong) ? sLong : sName;
        m_sPath += '\\';
    }
    ~CTestFolder() { remove(m_sPath); }
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
    static void remove(const std::string& sFolder)
    {
        WIN32_FIND_DATAA found;
        const HANDLE hFind = ::FindFirstFileA((sFolder + "*").c_str(), &found);
        if (hFind == INVALID_HANDLE_VALUE)
            return;
        do {
            const std::string sName(found.cFileName);
            if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
                ::SetFileAttributesA((sFolder + sName).c_str(), FILE_ATTRIBUTE_NORMAL);
                ::DeleteFileA((sFolder + sName).c_str());
            } else if (sName != "." && sName != "..") {
                remove(sFolder + sName + "\\");
            }
        } while (::FindNextFileA(hFind, &found));
        ::FindClose(hFind);
        ::RemoveDirectoryA(sFolder.c_str());
    }

    std::string m_sPath;
};
