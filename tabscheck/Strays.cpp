#include "tabscheck/Strays.h"

#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Spelling.h"
#include "tabscheck/TextCheck.h"

#include <algorithm>

namespace tabscheck {

namespace {

using Tesk::MultiByte::equalNoCase;
using Tesk::MultiByte::upper;

constexpr const char* kDomainFile = "DomainSettings.txt";
constexpr const char* kStandardFile = "StandardSettings.txt";
constexpr std::string_view kTexts = "MDITabs";
constexpr std::string_view kLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz _-";
constexpr std::size_t kMostEdits = 2;
constexpr int kProjectDepth = 4, kInstalledDepth = 2;

bool isSettingsFolder(const std::string& sFolder)
{
    const std::string sName = Tesk::CPathParts(Tesk::withoutBackslash(sFolder)).fileName();
    return equalNoCase(sName, "Settings") || equalNoCase(sName, "support");
}

// "MDITabs.ini", "MDITabs16.0.ini" or "MDITabsAutoCAD_16.0.ini".
bool isTextsName(std::string_view sName)
{
    if (sName.size() < 11 || !equalNoCase(sName.substr(0, 7), kTexts) ||
        !equalNoCase(sName.substr(sName.size() - 4), ".ini"))
        return false;
    const std::string_view sHost = sName.substr(7, sName.size() - 11);
    const std::size_t line = sHost.rfind('_');
    return sHost.empty() || (isOneOf(kReleases, sHost.substr(line == sHost.npos ? 0 : line + 1)) &&
                             (line == sHost.npos || isOneOf(kProducts, sHost.substr(0, line))));
}

// The name that a name of a file stands for: its letters up to the first other sign are nearly
// ours, whatever copies, backups and endings have added; empty for all other names.
std::string meantBy(const std::string& sName)
{
    if (isTextsName(sName))
        return sName;
    const std::string sOriginal = sName.starts_with("Copy of ") ? sName.substr(8) : sName;
    std::string sLetters = sOriginal.substr(0, sOriginal.find_first_not_of(kLetters));
    std::erase_if(sLetters, [](char c) { return c == ' ' || c == '_' || c == '-'; });
    for (const char* sOurs : {"ProjectSettings.txt", kDomainFile, kStandardFile, kSettingsFile}) {
        const std::string sStem(sOurs, std::string_view(sOurs).size() - 4);
        const bool begins = equalNoCase(sLetters.substr(0, sStem.size()), sStem);
        if (isDrawingName(sName) || (!begins && nearest(sLetters, {sStem}, kMostEdits).empty()))
            continue;
        const std::size_t release = sName.find("16");
        if (sStem != kTexts || release == std::string::npos)
            return sOurs;
        const std::string_view sRelease = std::string_view(sName).substr(release, 4);
        return sStem + (isOneOf(kReleases, sRelease) ? std::string(sRelease) : "16.0") + ".ini";
    }
    return {};
}

}  // namespace

bool isBelow(const std::string& sPath, const std::string& sFolder)
{
    return !sFolder.empty() && equalNoCase(sPath.substr(0, sFolder.size()), sFolder);
}

bool isOneOf(std::string_view sNames, std::string_view sName)
{
    const auto listed = [](std::string_view sText) { return ", " + upper(sText) + ","; };
    return sName.find(',') == sName.npos && listed(sNames).find(listed(sName)) != std::string::npos;
}

Strays::Strays()
    : m_application(Tesk::getLocation(Tesk::LOCATION_DIR_APPLICATION_ROOT).GetString()),
      m_domain(Tesk::getLocation(Tesk::LOCATION_DIR_DOMAIN_SETTINGS).GetString())
{
    look(m_application, kInstalledDepth);
    look(m_domain, kInstalledDepth);
    // Its name may be nearly right.
    const std::string sAround = parentOf(m_application);
    for (const FolderEntry& entry : entriesOf(sAround + "*").entries)
        if (entry.folder && meantBy(entry.name) == kDomainFile && !equalNoCase(entry.name, "DomainSettings"))
            look(sAround + entry.name + "\\", kInstalledDepth);
}

void Strays::see(const std::string& sFolder, const std::vector<FolderEntry>& entries)
{
    if (!m_seen.insert(upper(sFolder)).second)
        return;
    for (const FolderEntry& entry : entries) {
        if (entry.folder)
            continue;
        if (isDrawingName(entry.name))
            m_drawings.insert(upper(sFolder));
        else if (const std::string sMeant = meantBy(entry.name); !sMeant.empty())
            m_files[upper(sFolder + entry.name)] = {sFolder, entry.name, sMeant};
    }
}

void Strays::look(const std::string& sFolder, int depth)
{
    const std::vector<FolderEntry> entries = entriesOf(sFolder + "*").entries;
    see(sFolder, entries);
    for (const FolderEntry& entry : entries)
        if (entry.folder && depth > 0 && m_seen.count(upper(sFolder + entry.name + "\\")) == 0)
            look(sFolder + entry.name + "\\", depth - 1);
}

void Strays::lookAround(const std::string& sDrawing, const std::string& sRoot)
{
    const std::string sOwn = Tesk::CPathParts(sDrawing).parent();
    m_drawings.insert(upper(sOwn));
    const bool walked = m_seen.count(upper(sRoot)) != 0;
    for (std::string sUp = sOwn; !sUp.empty() && sUp.back() == '\\'; sUp = parentOf(sUp)) {
        const std::string sSettings = sUp + "Settings\\";
        const bool fresh = m_seen.count(upper(sUp)) == 0;
        if (fresh)
            look(sUp, 0);
        if (fresh && (Tesk::folderExists((sSettings + "support").c_str()) ||
                      Tesk::fileExists((sSettings + Tesk::kProjectSettings).c_str())))
            look(sSettings, 1);
        if (sUp == sRoot)
            break;
    }
    if (!sRoot.empty() && !walked)
        look(sRoot, kProjectDepth);
}

std::vector<std::string> Strays::below(const std::string& sFolder) const
{
    std::vector<std::string> paths;
    for (const auto& [sKey, file] : m_files)
        if (isBelow(file.folder, sFolder) && equalNoCase(file.name, file.meant))
            paths.push_back(file.folder + file.name);
    return paths;
}

// A project's file is there; one inside the folders of settings, or in another project and
// without drawings, is no project's.
bool Strays::isProject(const std::string& sFolder) const
{
    if (!Tesk::fileExists((sFolder + Tesk::kProjectSettings).c_str()))
        return false;
    const auto drawings = m_drawings.lower_bound(upper(sFolder));
    if (drawings != m_drawings.end() && isBelow(*drawings, sFolder))
        return true;
    return !isSettingsFolder(sFolder) && Tesk::findProjectFolder(parentOf(sFolder).c_str()).IsEmpty();
}

bool Strays::counts(const File& file) const
{
    return equalNoCase(file.name, file.meant) && equalNoCase(file.folder, placeFor(file));
}

// The folder where it would be read: that which it is in, if that is one.
std::string Strays::placeFor(const File& file) const
{
    if (file.meant == kDomainFile)
        return m_domain;
    if (file.meant == kStandardFile)
        return m_application + "support\\";
    const bool texts = file.meant != Tesk::kProjectSettings;
    if (texts && m_drawings.count(upper(file.folder)) != 0)
        return file.folder;
    for (const std::string& sBase : {m_application, m_domain})
        if (texts && isBelow(file.folder, sBase))
            return sBase + "support\\";
    std::string sRoot = file.folder;
    while (!sRoot.empty() && !isProject(sRoot))
        sRoot = parentOf(sRoot) == sRoot ? "" : parentOf(sRoot);
    if (texts)
        return sRoot.empty() ? "" : sRoot + "Settings\\support\\";
    return !sRoot.empty() ? sRoot : isSettingsFolder(file.folder) ? parentOf(file.folder) : file.folder;
}

std::vector<Problem> Strays::find() const
{
    std::vector<Problem> problems;
    for (const auto& [sKey, file] : m_files) {
        const std::string sPath = file.folder + file.name;
        const std::string sReason = equalNoCase(file.name, Tesk::kProjectSettings) ? tryToOpen(sPath).reason : "";
        if (!sReason.empty())
            problems.push_back(problemOf("file-closed", sPath, {sReason}));
        if (!sReason.empty() || counts(file))
            continue;
        const std::string sPlace = placeFor(file), sWhere = sPlace + file.meant;
        const std::string sHelp = sPlace.empty() ? "; it would be beside the drawings, or in Settings\\support beside "
                                                   "ProjectSettings.txt"
                                  : Tesk::fileExists(sWhere.c_str()) ? "; \"" + sWhere + "\" is"
                                                                     : "; did you mean \"" + sWhere + "\"?";
        problems.push_back(problemOf("never-read", sPath, {sHelp}));
    }
    return problems;
}

std::vector<std::string> Strays::counting() const
{
    std::vector<std::string> paths;
    for (const auto& [sKey, file] : m_files)
        if (isTextsName(file.name) && counts(file))
            paths.push_back(file.folder + file.name);
    return paths;
}

}  // namespace tabscheck
