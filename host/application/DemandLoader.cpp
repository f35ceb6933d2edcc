#include "host/application/DemandLoader.h"

#include "host/application/CommandLine.h"
#include "host/application/DynamicLinker.h"
#include "host/drawing/Paths.h"
#include "library/system/Handles.h"

#include <shlwapi.h>

#include <algorithm>

namespace host {

namespace {

// Release 16.0, product 201, in English.
const std::string kApplications = "SOFTWARE\\Autodesk\\AutoCAD\\R16.0\\ACAD-201:409\\Applications";

// The bits of LOADCTRLS that are heeded here.
constexpr DWORD kAtStart = 2;
constexpr DWORD kOnCommand = 4;
constexpr DWORD kDisabled = 0x10;

constexpr DWORD kMaxText = 1024;  // names of keys and values have 256 characters at most

std::string readText(HKEY root, const std::string& sPath, const char* sName)
{
    char text[kMaxText + 1] = "";
    DWORD size = kMaxText, type = 0;
    const DWORD status = ::SHGetValueA(root, sPath.c_str(), sName, &type, text, &size);
    return status == ERROR_SUCCESS && type == REG_SZ ? text : std::string();
}

DWORD readNumber(HKEY root, const std::string& sPath, const char* sName)
{
    DWORD number = 0, size = sizeof number, type = 0;
    const DWORD status = ::SHGetValueA(root, sPath.c_str(), sName, &type, &number, &size);
    return status == ERROR_SUCCESS && type == REG_DWORD ? number : 0;
}

// Of the sub-keys (RegEnumKeyEx) or of the values (RegEnumValue); none without the key.
template <class Enumerate>
std::vector<std::string> names(HKEY root, const std::string& sPath, Enumerate enumerate)
{
    std::vector<std::string> names;
    HKEY opened = nullptr;
    ::RegOpenKeyExA(root, sPath.c_str(), 0, KEY_READ, &opened);
    const UniqueKey key(opened);
    char name[kMaxText];
    for (DWORD i = 0, size = kMaxText;
         key && enumerate(key.get(), i, name, &size, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, size = kMaxText)
        names.emplace_back(name);
    return names;
}

std::string upperCase(std::string sText)
{
    ::CharUpperA(sText.data());
    return sText;
}

}  // namespace

DemandLoader::Entry DemandLoader::readEntry(const std::string& sPath, bool user)
{
    const HKEY root = user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
    Entry entry{readText(root, sPath, "LOADER"), readNumber(root, sPath, "LOADCTRLS"), {}};
    for (const std::string& sGlobal : names(root, sPath + "\\Commands", ::RegEnumValueA)) {
        entry.commands.push_back(upperCase(sGlobal));
        entry.commands.push_back(upperCase(readText(root, sPath + "\\Commands", sGlobal.c_str())));
    }
    return entry;
}

std::map<std::string, DemandLoader::Entry> DemandLoader::entries()
{
    std::map<std::string, Entry> found;
    for (const bool user : {true, false})
        for (const std::string& sName :
             names(user ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE, kApplications, ::RegEnumKeyExA))
            found.try_emplace(upperCase(sName), readEntry(kApplications + "\\" + sName, user));
    std::erase_if(found, [](const auto& item) { return (item.second.controls & kDisabled) != 0; });
    return found;
}

void DemandLoader::loadAtStart()
{
    for (const auto& [sName, entry] : entries())
        if ((entry.controls & kAtStart) != 0)
            load(entry);
}

bool DemandLoader::loadFor(const std::string& sCommand)
{
    bool loaded = false;
    for (const auto& [sName, entry] : entries())
        if ((entry.controls & kOnCommand) != 0 && std::ranges::count(entry.commands, upperCase(sCommand)) != 0)
            loaded = load(entry) || loaded;
    return loaded;
}

bool DemandLoader::load(const Entry& entry)
{
    const std::string sReason = m_linker.load(entry.loader, false);
    if (!sReason.empty())
        m_commandLine.printLine("\"" + entry.loader + "\", named in the registry, is not loaded: " + sReason + ".");
    return sReason.empty();
}

}  // namespace host
