#pragma once

// Where the well-known folders and files are.

#include "mfc/afx.h"

#include <string>

namespace Tesk {

// Below LOCATION_FILES: folders, given with a trailing backslash. Above: files.
enum Location {
    LOCATION_DIRS = 0,  // a marker, no location
    LOCATION_DIR_PROGRAM = 1,
    LOCATION_DIR_APPLICATION_ROOT = 2,
    LOCATION_DIR_HELPDOCS = 3,
    LOCATION_DIR_DOMAIN_SETTINGS = 4,
    LOCATION_DIR_TEMP = 5,
    LOCATION_DIR_USERAPPDATA = 6,
    LOCATION_DIR_USERLOCALAPPDATA = 7,
    LOCATION_DIR_USERZAVIKDATA = 8,
    LOCATION_DIR_USERLOCALZAVIKDATA = 9,
    LOCATION_DIR_USERPLENDADATA = 10,
    LOCATION_DIR_COMMONZAVIKFILES = 11,
    LOCATION_DIR_WINDOWS = 12,
    LOCATION_DIR_WINDOWS_SYSTEM = 13,
    LOCATION_DIR_WINDOWS_COMMONFILES = 14,
    LOCATION_DIR_PROGRAMFILES = 15,
    LOCATION_DIR_DRAWING = 16,
    LOCATION_DIR_PROJECT_DWG_ROOT = 17,
    LOCATION_DIR_PROJECT_DWG_SETTINGS = 18,
    LOCATION_FILES = 19,  // a marker, no location
    LOCATION_FILE_HELP = 20,
    LOCATION_FILE_DIAGNOSTICS_LOG = 21,
    LOCATION_FILE_MODULE = 22,
    LOCATION_FILE_DOMAIN_SETTINGS = 23,
    LOCATION_FILE_STANDARD_SETTINGS = 24,
    LOCATION_FILE_PROJECT_SETTINGS = 25
};

// Who a settings file is for, from the most general to the most specific.
enum class Layer { Standard, Domain, Project, Folder };

// The files that may define a drawing's title block, in the order in which they are asked.
inline constexpr Layer kTitleBlockLayers[] = {Layer::Project, Layer::Domain, Layer::Standard};

// At a project's root, the nearest folder from `sStart` up to the drive's root that holds it;
// with a trailing backslash. Empty when none does.
inline constexpr const char* kProjectSettings = "ProjectSettings.txt";
CString findProjectFolder(const char* sStart);
// The path of one of them, which need not be there; empty for a drawing without a project.
CString getTitleBlockFile(Layer eLayer, const char* sDrawing);

// The full path of a location; empty when there is none (no project, an unknown number).
// Never raises.
CString getLocation(int iWhere);

// For a program that looks on the module's behalf: from now on this path, of a file that
// need not exist, stands for the module's, and no look-up changes anything: an
// administrator's registry values are used but not copied, and no folder is made. Every
// folder stays where it was found first.
void lookOnlyAs(const char* sModuleFile);
bool isLookOnly();

// The first temporary folder that exists, else empty.
CString getTempFolder();

// The full form of a path; the path itself when it has none.
std::string fullPath(const std::string& sPath);

}  // namespace Tesk
