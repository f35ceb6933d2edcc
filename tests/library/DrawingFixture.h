#pragma once

// Drawings in a project, and the office's and the installation's settings beside it, in
// a folder tree of the test's own; the library takes a file there for its module.

#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"
#include "library/diagnostics/Maintenance.h"
#include "library/diagnostics/Prerelease.h"
#include "tests/support/DrawingText.h"
#include "tests/support/TestFolder.h"

#include <windows.h>
#include <doctest/doctest.h>

#include <memory>
#include <string>

class DrawingFixture {
public:
    static constexpr char sProject[] = "Jobs\\1234\\ProjectSettings.txt";
    static constexpr char sDomain[] = "Office\\DomainSettings\\DomainSettings.txt";
    static constexpr char sStandard[] = "Office\\Suite\\support\\StandardSettings.txt";

    DrawingFixture() : m_hPrevious(Tesk::G_hCurrentModule)
    {
        Tesk::G_hCurrentModule = module();
        for (const char* sName : {sProject, sDomain, sStandard})
            ::DeleteFileA(tree().path(sName).c_str());
    }
    ~DrawingFixture()
    {
        host::Faults::clear();
        Tesk::setDiagnosticsLevel(0);
        Tesk::G_hCurrentModule = m_hPrevious;
    }
    DrawingFixture(const DrawingFixture&) = delete;
    DrawingFixture& operator=(const DrawingFixture&) = delete;

    std::string path(const std::string& sName) const { return tree().path("Jobs\\1234\\Dwg\\" + sName); }

    std::unique_ptr<host::Database> open(const DrawingText& drawing, const std::string& sName = "A-100.dwg") const
    {
        return host::Database::open(tree().write("Jobs\\1234\\Dwg\\" + sName, drawing.str()));
    }

    // A settings file with a project label and these lines in one title-block group.
    void settings(const char* sFile, const std::string& sLabel, const std::string& sGroup) const
    {
        tree().write(sFile, "PROJECTLABEL\r\n{\r\n" + sLabel + "\r\n}\r\nTITLEBLOCKS\r\n{\r\n" + sGroup + "\r\n}\r\n");
    }

    static const CTestFolder& tree()
    {
        static const CTestFolder s_tree;
        return s_tree;
    }

private:
    // A copy of this program serves as the module's file; it stays loaded, and its file
    // with it, since the library remembers where a module is.
    static HINSTANCE module()
    {
        static const HINSTANCE s_hModule = [] {
            char sProgram[MAX_PATH];
            ::GetModuleFileNameA(nullptr, sProgram, sizeof sProgram);
            tree().folder("Office\\DomainSettings\\");
            const std::string sCopy = tree().write("Office\\Suite\\Components\\Module.dll");
            REQUIRE(::CopyFileA(sProgram, sCopy.c_str(), FALSE));
            return ::LoadLibraryExA(sCopy.c_str(), nullptr, DONT_RESOLVE_DLL_REFERENCES);
        }();
        REQUIRE(s_hModule != nullptr);
        return s_hModule;
    }

    HINSTANCE m_hPrevious;
};
