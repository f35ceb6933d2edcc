#include "library/maintenance/DiagnosticsLog.h"

#include "library/diagnostics/Guard.h"
#include "library/files/FileSearch.h"
#include "library/files/FileUtilities_TextFiles.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/text/StringView.h"

#include <ctime>
#include <string>

namespace Tesk {

namespace {

// Every folder on the way to the file, below the root.
void createFolders(const CString& sFileName)
{
    for (int i = sFileName.Find('\\', 3); i >= 0; i = sFileName.Find('\\', i + 1))
        ::CreateDirectoryA(sFileName.Left(i), nullptr);
}

}  // namespace

CDiagnosticsLog CDiagnosticsLog::s_log;

CString CDiagnosticsLog::getFileName() noexcept
{
    const CLock lock(m_section);
    if (m_sFileName.IsEmpty())
        neverRaise([this] { m_sFileName = getLocation(LOCATION_FILE_DIAGNOSTICS_LOG); });
    return m_sFileName;
}

void CDiagnosticsLog::startAfresh() noexcept
{
    const CLock lock(m_section);
    if (isAppending())
        return;
    m_dwOwner = ::GetCurrentThreadId();
    m_sFileName.Empty();
    ::DeleteFileA(getFileName());
    m_dwOwner = 0;
}

void CDiagnosticsLog::append(const char* sText) noexcept
{
    const CLock lock(m_section);
    if (isAppending())
        return;
    m_dwOwner = ::GetCurrentThreadId();
    neverRaise([this, sText] { write(sText); });
    m_dwOwner = 0;
}

void CDiagnosticsLog::write(const char* sText)
{
    const CString sFileName = getFileName();
    if (sFileName.IsEmpty())
        return;
    CString sLine(sText);
    sLine.TrimRight("\n");
    createFolders(sFileName);
    if (!fileExists(sFileName))
        writeTextFileLines(sFileName, describeMachine(), false);
    writeTextFileLines(sFileName, {sLine}, true);
}

CString CDiagnosticsLog::now(const char* sFormat)
{
    const std::time_t seconds = std::time(nullptr);
    char sText[80] = "";
    if (const std::tm* pLocal = std::localtime(&seconds))
        std::strftime(sText, sizeof sText, sFormat, pLocal);
    return sText;
}

CString CDiagnosticsLog::getDumpStem()
{
    const CString sFileName = getLocation(LOCATION_FILE_DIAGNOSTICS_LOG);
    createFolders(sFileName);
    return toCString(CPathParts(viewOf(sFileName)).withExtension(""));
}

}  // namespace Tesk
