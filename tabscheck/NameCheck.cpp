#include "library/text/Regex.h"

#include "tabscheck/NameCheck.h"

#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/MultiByte.h"
#include "tabscheck/SourceFile.h"
#include "tabscheck/Spelling.h"

#include <algorithm>

namespace tabscheck {

namespace {

using Tesk::MultiByte::equalNoCase;

constexpr const char* kTexts = "MDITabs.ini";
constexpr const char* kDoubled = ".txt";  // what an editor appends
constexpr std::size_t kMostEdits = 2;

bool isMeantAs(const std::string& sName, const std::string& sWanted)
{
    static const boost::regex sTexts("MDITabs.*\\.ini(\\.txt)?", boost::regex::icase);
    // "16.0" or "AutoCAD_16.0" behind the name.
    static const boost::regex sForAHost("MDITabs([^_].*_)?\\d+\\.[\\d.]+\\.ini", boost::regex::icase);
    if (equalNoCase(sName, sWanted + kDoubled))
        return true;
    return sWanted == kTexts && boost::regex_match(sName, sTexts) ? !boost::regex_match(sName, sForAHost)
                                                                  : !nearest(sName, {sWanted}, kMostEdits).empty();
}

}  // namespace

const std::vector<FolderEntry>& NameCheck::entries(const std::string& sFolder)
{
    const auto [found, fresh] = m_entries.try_emplace(sFolder);
    if (fresh) {
        found->second = entriesOf(sFolder + "*").entries;
        // What is looked for begins with one of these.
        std::erase_if(found->second, [](const FolderEntry& entry) {
            return std::string_view("mMpPsSdD").find(entry.name[0]) == std::string_view::npos;
        });
    }
    return found->second;
}

bool NameCheck::has(const std::string& sFolder, const std::string& sName)
{
    const std::vector<FolderEntry>& all = entries(sFolder);
    return std::any_of(all.begin(), all.end(), [&](const FolderEntry& e) { return equalNoCase(e.name, sName); });
}

void NameCheck::look(const Wanted& wanted, std::vector<Problem>& problems)
{
    const std::string sWanted = wanted.name;
    const bool folder = Tesk::CPathParts(sWanted).m_sExtension.empty();
    const bool there = has(wanted.folder, sWanted);
    for (const FolderEntry& entry : entries(wanted.folder)) {
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
    std::vector<Wanted> rows = {{sApplication + "support\\", "StandardSettings.txt", ""},
                                {sDomain, "DomainSettings.txt", ""},
                                {sFolder, kTexts, ""}};
    for (std::string sUp = sFolder; !sUp.empty() && sUp.back() == '\\';
         sUp = Tesk::CPathParts(Tesk::withoutBackslash(sUp)).parent()) {
        rows.push_back({sUp, Tesk::kProjectSettings, ""});
        if (sUp == sRoot)
            break;
        // One that does not open is passed over, and makes no project.
        if (has(sUp, Tesk::kProjectSettings))
            placeOf(Layer::Project, sUp + Tesk::kProjectSettings, found->second);
    }
    if (!sRoot.empty())
        rows.push_back({sRoot, "Settings", ""});
    for (const std::string& sBase : {sApplication, sDomain, sRoot.empty() ? "" : sRoot + "Settings\\"}) {
        if (sBase.empty())
            continue;
        rows.push_back({sBase, "support", ""});
        rows.push_back({sBase, kTexts, sBase + "support\\" + kTexts});
        rows.push_back({sBase + "support\\", kTexts, ""});
    }
    for (const Wanted& row : rows)
        look(row, found->second);
    return found->second;
}

}  // namespace tabscheck
