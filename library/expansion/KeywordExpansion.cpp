#include "library/expansion/KeywordExpansion.h"

#include "library/diagnostics/Prerelease.h"
#include "library/expansion/DatePass.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/system/ComputerName.h"
#include "library/system/Handles.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"

#include <windows.h>

#include <lmcons.h>
#include <time.h>
#include <winnetwk.h>

namespace Tesk {

namespace {

std::string userName()
{
    char sUser[UNLEN + 1] = "";
    DWORD size = sizeof sUser;
    if (::WNetGetUserA(nullptr, sUser, &size) == NO_ERROR)
        return sUser;
    // No network provider: the name is the one that the user logged on with.
    size = sizeof sUser;
    return ::GetUserNameA(sUser, &size) ? sUser : "";
}

// By way of local time, as the platform shows the file's time; false when it has no such
// time.
bool toTime(const FILETIME& fileTime, __time64_t& time)
{
    FILETIME local;
    SYSTEMTIME parts;
    if (!::FileTimeToLocalFileTime(&fileTime, &local) || !::FileTimeToSystemTime(&local, &parts))
        return false;
    tm broken{};
    broken.tm_year = parts.wYear - 1900;
    broken.tm_mon = parts.wMonth - 1;
    broken.tm_mday = parts.wDay;
    broken.tm_hour = parts.wHour;
    broken.tm_min = parts.wMinute;
    broken.tm_sec = parts.wSecond;
    broken.tm_isdst = -1;
    const __time64_t result = ::_mktime64(&broken);
    if (result < 0)
        return false;
    time = result;
    return true;
}

}  // namespace

CKeywordExpansion::CKeywordExpansion(const char* sFileName, int iIndex, int iCount)
    : m_sFileName(sFileName), m_iCount(iCount), m_iIndex(iIndex)
{
    TESK_ASSERT(sFileName != NULL);
    if (!m_sFileName.IsEmpty())
        CKeywordExpansion::buildFileMappings();
    CKeywordExpansion::buildLocationMappings();
    CKeywordExpansion::buildSystemMappings();
}

CKeywordExpansion::~CKeywordExpansion() = default;

void CKeywordExpansion::buildFileMappings()
{
    const CPathParts parts(viewOf(m_sFileName));
    const std::string sFolder = parts.parent();
    // The cut is unconditional: a UNC name loses its leading backslashes.
    const MultiByte::CLeadBytes lead;
    std::size_t cut = sFolder.empty() ? 0 : lead.next(sFolder, 0);
    cut = cut < sFolder.size() ? lead.next(sFolder, cut) : cut;
    const std::string sExtension = parts.m_sExtension.empty() ? "" : parts.m_sExtension.substr(1);

    addToMap("PATH", m_sFileName);
    addToMap("DRIVE", parts.m_sDrive.substr(0, 1).c_str());
    addToMap("DIRECTORY", sFolder.substr(cut).c_str());
    addToMap("FOLDER", sFolder.c_str());
    addToMap("FILENAME", parts.m_sBase.c_str());
    addToMap("EXTENSION", sExtension.c_str());
    addToMap("DRAWING", (sFolder + parts.m_sBase).c_str());
    addIntToMap("DRAWING_INDEX", m_iIndex);
    addIntToMap("DRAWING_COUNT", m_iCount);

    if (!m_sProjectFolder) {
        m_sProjectFolder = findProjectFolder(sFolder.c_str());
        readFileTime();
    }
    const CString& sProject = *m_sProjectFolder;
    addToMap("DIR_PROJECT_DWG_ROOT", sProject);
    addToMap("DIR_PROJECT_DWG_SETTINGS", sProject.IsEmpty() ? sProject : sProject + "Settings");
}

void CKeywordExpansion::buildLocationMappings()
{
    addToMap("DIR_PROGRAM", getLocation(LOCATION_DIR_PROGRAM));
    addToMap("DIR_APPLICATION_ROOT", getLocation(LOCATION_DIR_APPLICATION_ROOT));
    addToMap("DIR_DOMAIN_SETTINGS", getLocation(LOCATION_DIR_DOMAIN_SETTINGS));
    addToMap("DIR_TEMP", getLocation(LOCATION_DIR_TEMP));
    addToMap("DIR_USERPLENDADATA", getLocation(LOCATION_DIR_USERPLENDADATA));
    addToMap("DIR_WINDOWS_SYSTEM", getLocation(LOCATION_DIR_WINDOWS_SYSTEM));
    addToMap("DIR_WINDOWS_COMMONFILES", getLocation(LOCATION_DIR_WINDOWS_COMMONFILES));
}

void CKeywordExpansion::buildSystemMappings()
{
    addToMap("USER_NAME", userName().c_str());
    addToMap("COMPUTER_NAME", getComputerName().c_str());
    m_timeCurrent = ::_time64(nullptr);
    m_bCurrentTimeValid = true;
    addToMap("NEWLINE", "\n");
}

void CKeywordExpansion::readFileTime()
{
    const UniqueHandle file(::CreateFileA(m_sFileName, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    FILETIME created, accessed, written;
    if (file && ::GetFileTime(file.get(), &created, &accessed, &written) && toTime(written, m_timeFile))
        m_bFileTimeValid = true;
}

void CKeywordExpansion::addToMap(const char* sKey, const char* sValue)
{
    if (!sValue)
        sValue = "";
    TESK_TRACE("CKeywordExpansion::addToMap(\"%s\", \"%s\")\n", sKey, sValue);
    std::string sForward(sValue);
    MultiByte::replaceAll(sForward, "\\", "/", true);
    m_mapKeywords[sKey] = sValue;
    m_mapKeywords[std::string("X_") + sKey] = std::move(sForward);
}

void CKeywordExpansion::addIntToMap(const char* sKey, int iValue)
{
    CString sValue;
    sValue.Format("%i", iValue);
    addToMap(sKey, sValue);
}

CString CKeywordExpansion::expandString(const char* sInput, const char* sStart, const char* sEnd) const
{
    TESK_TRACE("CKeywordExpansion::expandString(\"%s\", \"%s\", \"%s\")\n", sInput, sStart, sEnd);
    if (!*sEnd)
        sEnd = sStart;
    std::string sText = expandKeywords(sInput, m_mapKeywords, sStart, sEnd);
    sText = expandDates(std::move(sText), sStart, sEnd);
    TESK_TRACE("\toutput = \"%s\"\n", sText.c_str());
    return toCString(sText);
}

CString CKeywordExpansion::expandString(const char* sInput) const { return expandString(sInput, "%", ""); }

std::string CKeywordExpansion::expandDates(std::string sText, const char* sStart, const char* sEnd) const
{
    if (m_bFileTimeValid)
        sText = expandFileDates(std::move(sText), sStart, sEnd);
    if (m_bCurrentTimeValid)
        sText = expandCurrentDates(std::move(sText), sStart, sEnd);
    return sText;
}

std::string CKeywordExpansion::expandFileDates(std::string sText, const char* sStart, const char* sEnd) const
{
    TESK_ASSERT(m_bFileTimeValid);
    sText = expandDateKeyword("UPDATE_DATE", m_timeFile, false, std::move(sText), sStart, sEnd);
    return expandDateKeyword("UPDATE_DATE_UTC", m_timeFile, true, std::move(sText), sStart, sEnd);
}

std::string CKeywordExpansion::expandCurrentDates(std::string sText, const char* sStart, const char* sEnd) const
{
    TESK_ASSERT(m_bCurrentTimeValid);
    sText = expandDateKeyword("CURRENT_DATE", m_timeCurrent, false, std::move(sText), sStart, sEnd);
    return expandDateKeyword("CURRENT_DATE_UTC", m_timeCurrent, true, std::move(sText), sStart, sEnd);
}

}  // namespace Tesk
