#include "library/diagnostics/Prerelease.h"

#include "library/diagnostics/AssertionReport.h"
#include "library/diagnostics/DiagnosticsLog.h"
#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Maintenance.h"
#include "mfc/afx.h"
#include "objectarx/acutads.h"

#include <windows.h>

#include <cstdarg>

namespace Tesk {

Detail::CDiagnosticsSwitches Detail::g_switches;

namespace {

int g_iLevel = 0;

// The longest piece that the command line takes, cut between characters.
int pieceLength(const CString& sText, int iStart)
{
    constexpr int kMost = 132;
    const int iRest = sText.GetLength() - iStart;
    if (iRest <= kMost)
        return iRest;
    int iLength = 0;
    while (iLength < kMost) {
        const int iStep = AfxIsLeadByte(sText[iStart + iLength]) ? 2 : 1;
        if (iLength + iStep > kMost)
            break;
        iLength += iStep;
    }
    return iLength;
}

void echoOnCommandLine(CString sText)
{
    sText.Trim("\n");
    sText += '\n';
    for (int iStart = 0; iStart < sText.GetLength();) {
        const int iLength = pieceLength(sText, iStart);
        acutPrintf("%s", sText.Mid(iStart, iLength).GetString());
        iStart += iLength;
    }
}

void traceLine(const char* sFormat, va_list arguments)
{
    CString sMessage;
    sMessage.FormatV(sFormat, arguments);
    const CString sLine = Detail::timeStamp() + G_sApplicationName + " : " + sMessage;
    Detail::sendToDebugger(sLine);
    if (Detail::g_switches.m_bLog)
        CDiagnosticsLog::get().append(sLine);
    echoOnCommandLine(sLine);
}

}  // namespace

void setDiagnosticsLevel(int iLevel)
{
    if (iLevel < 0 || iLevel > 2)
        return;
    if (iLevel == 2)
        CDiagnosticsLog::get().getFileName();  // looked up while the lookup cannot trace
    g_iLevel = iLevel;
    Detail::g_switches.m_bTrace = Detail::g_switches.m_bConsole = Detail::g_switches.m_bLog = iLevel == 2;
    Detail::g_switches.m_bAssertions = iLevel >= 1;
}

int getDiagnosticsLevel() { return g_iLevel; }

void trace(const char* sFormat, ...) noexcept
{
    if (!isTraceEnabled())
        return;
    va_list arguments;
    va_start(arguments, sFormat);
    neverRaise([&] { traceLine(sFormat, arguments); });
    va_end(arguments);
}

}  // namespace Tesk
