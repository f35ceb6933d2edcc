#pragma once

// An installation in a tree of its own, the library's while the object lives: a copy of
// this program stands for the module.

#include "library/diagnostics/LibraryState.h"
#include "tests/support/TestFolder.h"

#include <windows.h>
#include <doctest/doctest.h>

#include <string>

class CInstallation {
public:
    explicit CInstallation(const std::string& sFolder, bool bShortPath = false) : m_hPrevious(Tesk::G_hCurrentModule)
    {
        char sPath[MAX_PATH];
        ::GetModuleFileNameA(nullptr, sPath, sizeof sPath);
        m_tree.folder(sFolder);
        std::string sModule = m_tree.path(sFolder + "TheModule.arx");
        REQUIRE(::CopyFileA(sPath, sModule.c_str(), TRUE));
        if (bShortPath && ::GetShortPathNameA(sModule.c_str(), sPath, sizeof sPath))
            sModule = sPath;
        m_hModule = ::LoadLibraryExA(sModule.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
        REQUIRE(m_hModule);
        Tesk::G_hCurrentModule = m_hModule;
    }
    ~CInstallation()
    {
        Tesk::G_hCurrentModule = m_hPrevious;
        ::FreeLibrary(m_hModule);
    }
    CInstallation(const CInstallation&) = delete;
    CInstallation& operator=(const CInstallation&) = delete;

    const CTestFolder& tree() const { return m_tree; }

private:
    CTestFolder m_tree;
    HINSTANCE m_hPrevious;
    HMODULE m_hModule = nullptr;
};
