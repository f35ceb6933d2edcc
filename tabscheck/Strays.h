#pragma once

// Files that somebody meant as settings, and that nothing ever reads.

#include "tabscheck/Folders.h"
#include "tabscheck/Report.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tabscheck {

// What a host calls its release and itself, the stand-in included.
inline constexpr std::string_view kReleases = "16.0, 16.1, 16.2";
inline constexpr std::string_view kProducts =
    "AutoCAD, AutoCAD Electrical, AutoCAD Map, AutoCAD Map 3D, AutoCAD Mechanical, Autodesk Architectural Desktop, "
    "Autodesk Building Systems, Autodesk Civil 3D, Autodesk Land Desktop, Autodesk Map, Autodesk Map 3D, "
    "Autodesk Mechanical Desktop, CAD Host";

// A name of these; letters count without case, as in the names of files.
bool isOneOf(std::string_view sNames, std::string_view sName);

bool isBelow(const std::string& sPath, const std::string& sFolder);

class Strays {
public:
    Strays();

    // Takes down what a folder holds, which a backslash ends.
    void see(const std::string& sFolder, const std::vector<FolderEntry>& entries);
    // The folder and what lies so far below it.
    void look(const std::string& sFolder, int depth);
    // The folders where somebody may have put settings for a drawing: those above it, and the
    // project.
    void lookAround(const std::string& sDrawing, const std::string& sRoot);
    // The settings files in and below a folder that was seen.
    std::vector<std::string> below(const std::string& sFolder) const;
    // Of all that was seen, what nothing reads, and where it would count.
    std::vector<Problem> find() const;
    // The files of texts that a drawing or a host may read.
    std::vector<std::string> counting() const;

private:
    struct File {
        std::string folder;
        std::string name;
        std::string meant;  // the name that is read
    };

    bool isProject(const std::string& sFolder) const;
    bool counts(const File& file) const;
    std::string placeFor(const File& file) const;

    std::string m_application;  // these end in a backslash
    std::string m_domain;
    std::map<std::string, File> m_files;  // by their paths, in capitals
    std::set<std::string> m_seen;         // folders, in capitals
    std::set<std::string> m_drawings;     // folders with drawings, in capitals
};

}  // namespace tabscheck
