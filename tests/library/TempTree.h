// A folder tree of a test's own, gone with the object.
#pragma once

#include <windows.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

class CTempTree {
public:
    CTempTree() {
        char szTemp[MAX_PATH], szName[MAX_PATH];
        ::GetTempPathA(sizeof szTemp, szTemp);
        ::GetTempFileNameA(szTemp, "tsk", 0, szName);  // makes the name ours
        ::DeleteFileA(szName);
        ::CreateDirectoryA(szName, nullptr);
        char szLong[MAX_PATH];
        m_sRoot = ::GetLongPathNameA(szName, szLong, sizeof szLong) ? szLong : szName;
        m_sRoot += '\\';
    }
    ~CTempTree() { remove(m_sRoot); }
    CTempTree(const CTempTree&) = delete;
    CTempTree& operator=(const CTempTree&) = delete;

    // The full path of a name below the tree; of the tree itself, with a backslash, for "".
    std::string path(const std::string& sName) const { return m_sRoot + sName; }

    // Makes a folder with its parents; a name that ends in a backslash is a folder.
    void folder(const std::string& sName) const {
        for (std::size_t at = sName.find('\\'); at != std::string::npos; at = sName.find('\\', at + 1))
            ::CreateDirectoryA(path(sName.substr(0, at)).c_str(), nullptr);
    }

    // Writes a file, with its folders; gives its full path.
    std::string write(const std::string& sName, std::string_view sContents = "") const {
        folder(sName);
        FILE* const pFile = std::fopen(path(sName).c_str(), "wb");
        if (pFile) {
            std::fwrite(sContents.data(), 1, sContents.size(), pFile);
            std::fclose(pFile);
        }
        return path(sName);
    }

private:
    static void remove(const std::string& sFolder) {
        WIN32_FIND_DATAA found;
        const HANDLE hFind = ::FindFirstFileA((sFolder + "*").c_str(), &found);
        if (hFind != INVALID_HANDLE_VALUE) {
            do {
                const std::string sPath = sFolder + found.cFileName;
                if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
                    ::DeleteFileA(sPath.c_str());
                else if (std::strcmp(found.cFileName, ".") && std::strcmp(found.cFileName, ".."))
                    remove(sPath + "\\");
            } while (::FindNextFileA(hFind, &found));
            ::FindClose(hFind);
        }
        ::RemoveDirectoryA(sFolder.c_str());
    }

    std::string m_sRoot;
};
