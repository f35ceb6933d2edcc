#include "tabscheck/NameCheck.h"

#include "library/files/FileSearch.h"
#include "library/files/PathParts.h"
#include "library/system/Handles.h"
#include "library/text/MultiByte.h"
#include "tabscheck/Spelling.h"

#include <windows.h>

#include <algorithm>

namespace tabscheck {

namespace {

using Tesk::MultiByte::equalNoCase;

constexpr std::string_view kTexts = "MDITabs.ini";
constexpr std::string_view kDoubled = ".txt";  // what an editor appends
constexpr std::size_t kMostEdits = 2;

// Texts for some host: "16.0" or "AutoCAD_16.0" behind the name.
bool isForAHost(const std::string& sName)
{
    const Tesk::CPathParts parts(sName);
    if (!equalNoCase(parts.m_sBase.substr(0, 7), "MDITabs") || !equalNoCase(parts.m_sExtension, ".ini"))
        return false;
    const std::string sRelease = parts.m_sBase.substr(std::max<std::size_t>(parts.m_sBase.rfind('_') + 1, 7));
    const std::size_t dot = sRelease.find('.');
    return dot != std::string::npos && dot > 0 && dot + 1 < sRelease.size() &&
           sRelease.find_first_not_of("0123456789.") == std::string::npos;
}

bool isMeantAs(const std::string& sName, const std::string& sWanted)
{
    const std::string sDoubled = sName.size() > kDoubled.size() ? sName.substr(0, sName.size() - kDoubled.size()) : "";
    if (equalNoCase(sDoubled + std::string(kDoubled), sName) && equalNoCase(sDoubled, sWanted))
        return true;
    const bool host = sWanted == kTexts && equalNoCase(sName.substr(0, 7), "MDITabs") &&
                      equalNoCase(Tesk::CPathParts(sName).m_sExtension, ".ini");
    return host ? !isForAHost(sName) : !nearest(sName, {sWanted}, kMostEdits).empty();
}

}  // namespace

const std::vector<NameCheck::Entry>& NameCheck::entries(const std::string& sFolder)
{
    const auto [found, fresh] = m_entries.try_emplace(sFolder);
    WIN32_FIND_DATAA entry;
    const UniqueFind find(fresh && sFolder.size() + 1 < MAX_PATH ? ::FindFirstFileA((sFolder + "*").c_str(), &entry)
                                                                 : INVALID_HANDLE_VALUE);
    for (bool more = static_cast<bool>(find); more; more = ::FindNextFileA(find.get(), &entry) != FALSE) {
        const char first = entry.cFileName[0] | 0x20;  // of what is looked for
        if (first == 'm' || first == 'p' || first == 's' || first == 'd')
            found->second.push_back({entry.cFileName, (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    }
    return found->second;
}

void NameCheck::look(const Wanted& wanted, std::vector<Problem>& problems)
{
    const std::string sWanted = wanted.name;
    const bool folder = Tesk::CPathParts(sWanted).m_sExtension.empty();
    const std::vector<Entry>& all = entries(wanted.folder);
    const bool there =
        std::any_of(all.begin(), all.end(), [&](const Entry& e) { return equalNoCase(e.name, sWanted); });
    for (const Entry& entry : all) {
        const bool same = equalNoCase(entry.name, sWanted);
        if (entry.folder != folder || (same ? wanted.meant.empty() : !isMeantAs(entry.name, sWanted)))
            continue;
        const std::string sMeant = wanted.meant.empty() ? wanted.folder + sWanted : wanted.meant;
        problems.push_back({wanted.folder + entry.name, 0, 0, false,
                            "there, but never read" + (there && !same ? "" : "; did you mean \"" + sMeant + "\"?"), "",
                            false});
    }
}

const std::vector<Problem>& NameCheck::of(const std::string& sFolder, const std::string& sRoot)
{
    const auto [found, fresh] = m_problems.try_emplace(sFolder);
    if (!fresh)
        return found->second;
    const std::string sApplication = Tesk::getLocation(Tesk::LOCATION_DIR_APPLICATION_ROOT).GetString();
    const std::string sDomain = Tesk::getLocation(Tesk::LOCATION_DIR_DOMAIN_SETTINGS).GetString();
    const std::string sTexts = "support\\" + std::string(kTexts);
    std::vector<Wanted> rows = {
        {sApplication, "support", ""},
        {sApplication, kTexts.data(), sApplication + sTexts},
        {sApplication + "support\\", kTexts.data(), ""},
        {sApplication + "support\\", "StandardSettings.txt", ""},
        {sDomain, "support", ""},
        {sDomain, kTexts.data(), sDomain + sTexts},
        {sDomain, "DomainSettings.txt", ""},
        {sDomain + "support\\", kTexts.data(), ""},
        {sFolder, kTexts.data(), ""},
    };
    for (std::string sUp = sFolder; !sUp.empty() && sUp.back() == '\\';
         sUp = Tesk::CPathParts(Tesk::withoutBackslash(sUp)).parent()) {
        rows.push_back({sUp, Tesk::kProjectSettings, ""});
        if (sUp == sRoot)
            break;
    }
    if (!sRoot.empty()) {
        const std::string sSettings = sRoot + "Settings\\";
        rows.push_back({sRoot, "Settings", ""});
        rows.push_back({sSettings, "support", ""});
        rows.push_back({sSettings, kTexts.data(), sSettings + sTexts});
        rows.push_back({sSettings + "support\\", kTexts.data(), ""});
    }
    for (const Wanted& row : rows)
        look(row, found->second);
    return found->second;
}

}  // namespace tabscheck
