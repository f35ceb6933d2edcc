#include "library/diagnostics/Prerelease.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Maintenance.h"
#include "library/maintenance/AssertionReport.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "mfc/afx.h"
#include "objectarx/acutads.h"

#include <windows.h>

#include <cstdarg>
#include <string>

namespace Tesk {

Detail::CDiagnosticsSwitches Detail::g_switches;

namespace {

int g_iLevel = 0;

// The longest piece that the command line takes, cut between characters.
std::string_view nextPiece(std::string_view sText)
{
    constexpr std::size_t kMost = 132;
    if (sText.size() <= kMost)
        return sText;
    const std::string_view sPiece = sText.substr(0, kMost);
    return MultiByte::CLeadBytes().isOpen(sPiece) ? sPiece.substr(0, kMost - 1) : sPiece;
}

void echoOnCommandLine(CString sText)
{
    sText.Trim("\n");
    sText += '\n';
    for (std::string_view sRest = viewOf(sText); !sRest.empty();) {
        const std::string_view sPiece = nextPiece(sRest);
        acutPrintf("%s", std::string(sPiece).c_str());
        sRest.remove_prefix(sPiece.size());
    }
}

void traceLine(const char* sFormat, va_list arguments)
{
    CString sMessage;
    sMessage.FormatV(sFormat, arguments);
    const CString sLine = Detail::timeStamp() + G_sApplicationName + " : " + sMessage;
    Detail::sendToDebugger(sLine);
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
    Detail::g_switches.m_bConsole = Detail::g_switches.m_bLog = iLevel == 2;
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
