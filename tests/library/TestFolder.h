// A folder of its own in the temporary folder, gone with all its files at the
// end of the test.
#pragma once

#include "mfc/afx.h"

#include <windows.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

class CTestFolder {
public:
    CTestFolder()
    {
        char sTemp[MAX_PATH];
        ::GetTempPathA(MAX_PATH, sTemp);
        static int iCount = 0;
        m_sPath.Format("%stesk-%u-%d\\", sTemp, static_cast<unsigned>(::GetCurrentProcessId()), ++iCount);
        ::CreateDirectoryA(m_sPath, nullptr);
    }
    ~CTestFolder() { remove(m_sPath); }
    CTestFolder(const CTestFolder&) = delete;
    CTestFolder& operator=(const CTestFolder&) = delete;

    const CString& path() const { return m_sPath; }

    // Writes the bytes and gives the path.
    CString file(const char* sName, const std::string& sBytes) const
    {
        const CString sFile = m_sPath + sName;
        std::ofstream(sFile.str(), std::ios::binary) << sBytes;
        return sFile;
    }

    static std::string read(const CString& sFile)
    {
        std::ostringstream bytes;
        bytes << std::ifstream(sFile.str(), std::ios::binary).rdbuf();
        return bytes.str();
    }

private:
    static void remove(const CString& sFolder)
    {
        WIN32_FIND_DATAA found;
        const HANDLE hFind = ::FindFirstFileA(sFolder + "*", &found);
        if (hFind == INVALID_HANDLE_VALUE)
            return;
        do {
            const CString sName(found.cFileName);
            if (sName == "." || sName == "..")
                continue;
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                remove(sFolder + sName + "\\");
            else
                ::DeleteFileA(sFolder + sName);
        } while (::FindNextFileA(hFind, &found));
        ::FindClose(hFind);
        ::RemoveDirectoryA(sFolder);
    }

    CString m_sPath;
};

// UTF-16 little-endian bytes, with the byte-order mark.
inline std::string utf16(const std::wstring& sText)
{
    std::string sBytes = "\xFF\xFE";
    for (const wchar_t c : sText) {
        sBytes += static_cast<char>(c & 0xFF);
        sBytes += static_cast<char>(c >> 8);
    }
    return sBytes;
}

// The message of what the action raises; deletes it. Empty when nothing is raised.
template <class Action>
std::string messageOf(Action action)
{
    try {
        action();
    } catch (CException* pException) {
        char sText[1024] = "";
        pException->GetErrorMessage(sText, sizeof sText);
        pException->Delete();
        return sText;
    }
    return {};
}
