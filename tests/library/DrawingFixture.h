#pragma once

// Drawings in a project, and the office's and the installation's settings beside it, in
// a folder tree of the test's own.

#include "host/drawing/Database.h"
#include "tests/library/Installation.h"
#include "tests/support/DrawingText.h"

#include <memory>
#include <string>

class DrawingFixture {
public:
    static constexpr char sProject[] = "Jobs\\1234\\ProjectSettings.txt";
    static constexpr char sDomain[] = "Office\\DomainSettings\\DomainSettings.txt";
    static constexpr char sStandard[] = "Office\\Suite\\support\\StandardSettings.txt";

    DrawingFixture() { tree().folder("Office\\DomainSettings\\"); }

    const CTestFolder& tree() const { return m_installation.tree(); }
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

private:
    CInstallation m_installation{"Office\\Suite\\Components\\"};
};
