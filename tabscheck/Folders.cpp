#include "tabscheck/Folders.h"

#include "dxf/FileError.h"
#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/system/Handles.h"
#include "library/text/CodePage.h"
#include "library/text/MultiByte.h"

#include <windows.h>

#include <algorithm>

namespace tabscheck {

namespace {

using Tesk::fullPath;
using Tesk::MultiByte::equalNoCase;

constexpr const char* kLostLetters =
    "its name has letters that the Windows code page lacks: the strip cannot open it either";

// The command line has letters that its narrow form lacks.
bool hasLostLetters()
{
    const std::wstring sLine = ::GetCommandLineW();
    return Tesk::toWide(Tesk::toNarrow(sLine)) != sLine;
}

bool isFolder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

// Not there, as opposed to: there is no way to tell.
bool isMissing(DWORD error)
{
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME;
}

// What the system says about an error of a file or folder, in a few words.
std::string systemReason(DWORD code)
{
    return isMissing(code) ? "no such file or folder" : dxf::FileError::systemReason(code);
}

// Which folder it is, by whatever path; the path for one that does not say.
std::string idOf(const std::string& sFolder)
{
    const UniqueHandle folder(::CreateFileA(sFolder.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION facts;
    if (!folder || !::GetFileInformationByHandle(folder.get(), &facts) ||
        (facts.nFileIndexHigh | facts.nFileIndexLow) == 0)
        return sFolder;
    return std::to_string(facts.dwVolumeSerialNumber) + " " + std::to_string(facts.nFileIndexHigh) + " " +
           std::to_string(facts.nFileIndexLow);
}

// A link to a folder that it is in, so that what is there is checked as it is.
bool isCircle(const std::string& sLink)
{
    const std::string sTarget = idOf(sLink);
    std::string sUp = parentOf(sLink);
    while (!sUp.empty() && idOf(sUp) != sTarget)
        sUp = parentOf(sUp) == sUp ? "" : parentOf(sUp);
    return !sUp.empty();
}

}  // namespace

bool isDrawingName(const std::string& sPath)
{
    const std::string sExtension = Tesk::CPathParts(sPath).m_sExtension;
    return equalNoCase(sExtension, ".dwg") || equalNoCase(sExtension, ".dxf");
}

Opening tryToOpen(const std::string& sPath)
{
    const UniqueHandle file(::CreateFileA(sPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    const DWORD error = file ? ERROR_FILE_NOT_FOUND : ::GetLastError();
    const DWORD attributes = isMissing(error) ? INVALID_FILE_ATTRIBUTES : ::GetFileAttributesA(sPath.c_str());
    const bool none = isMissing(error) || (attributes != INVALID_FILE_ATTRIBUTES && isFolder(attributes));
    return {static_cast<bool>(file), none ? "" : systemReason(error)};
}

std::string parentOf(const std::string& sFolder) { return Tesk::CPathParts(Tesk::withoutBackslash(sFolder)).parent(); }

std::string existingFolder(const std::string& sPath)
{
    const std::string sFull = fullPath(sPath);
    return Tesk::folderExists(sFull.c_str()) ? Tesk::withBackslash(sFull) : "";
}

Listing entriesOf(const std::string& sPattern)
{
    Listing listing;
    WIN32_FIND_DATAA entry;
    const UniqueFind find(::FindFirstFileA(sPattern.c_str(), &entry));
    for (bool more = static_cast<bool>(find); more; more = ::FindNextFileA(find.get(), &entry) != FALSE) {
        const std::string sName = entry.cFileName;
        if (sName != "." && sName != "..")
            listing.entries.push_back({sName, isFolder(entry.dwFileAttributes),
                                       (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0});
    }
    listing.error = ::GetLastError();
    std::sort(listing.entries.begin(), listing.entries.end());
    return listing;
}

void DrawingFinder::add(const std::string& sPath)
{
    const std::string sFull = fullPath(sPath);
    if (sPath.find_first_of("*?") != std::string::npos)
        return addMatching(sFull);
    if (!fits(sFull))
        return;
    const DWORD attributes = ::GetFileAttributesA(sFull.c_str());
    const DWORD error = ::GetLastError();
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if (isFolder(attributes))
            addFolder(Tesk::withBackslash(sFull));
        else
            m_found(sFull);
    } else if (isMissing(error) && isDrawingName(sFull) && !existingFolder(Tesk::CPathParts(sFull).parent()).empty()) {
        m_found(sFull);
    } else {
        m_tell(sPath, systemReason(error));
    }
}

void DrawingFinder::addMatching(const std::string& sPattern)
{
    bool any = false;
    for (const FolderEntry& entry : entriesOf(sPattern).entries) {
        if (!entry.folder && !isDrawingName(entry.name))
            continue;
        any = true;
        add(Tesk::CPathParts(sPattern).parent() + entry.name);
    }
    if (!any)
        m_tell(sPattern, hasLostLetters() ? kLostLetters : "no drawing and no folder is so named");
}

bool DrawingFinder::fits(const std::string& sPath)
{
    // The system puts "?" where the code page has no letter for it.
    const bool lost = sPath.find('?') != std::string::npos;
    const bool fits = !lost && sPath.size() < MAX_PATH;
    if (!fits)
        m_tell(sPath, lost ? kLostLetters : systemReason(ERROR_FILENAME_EXCED_RANGE));
    return fits;
}

void DrawingFinder::addFolder(const std::string& sFolder)
{
    if (!fits(sFolder + "*"))
        return;
    const Listing listing = entriesOf(sFolder + "*");
    if (listing.error != ERROR_NO_MORE_FILES && listing.error != ERROR_FILE_NOT_FOUND)
        m_tell(sFolder, systemReason(listing.error));
    m_listed(sFolder, listing.entries);
    for (const FolderEntry& entry : listing.entries)
        if (!entry.folder && isDrawingName(entry.name) && fits(sFolder + entry.name))
            m_found(sFolder + entry.name);
    for (const FolderEntry& entry : listing.entries)
        if (entry.folder && !(entry.link && isCircle(sFolder + entry.name + "\\")))
            addFolder(sFolder + entry.name + "\\");
}

}  // namespace tabscheck
