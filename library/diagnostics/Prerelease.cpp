#include "library/diagnostics/Prerelease.h"

#include "library/diagnostics/Guard.h"
#include "mfc/afx.h"

#include <windows.h>

#include <cstdarg>

namespace Tesk {

Detail::CDiagnosticsSwitches Detail::g_switches;

namespace {

int g_iLevel = 0;
CDiagnosticsSinks g_sinks;

}  // namespace

void setDiagnosticsSinks(const CDiagnosticsSinks& sinks) { g_sinks = sinks; }

void setDiagnosticsLevel(int iLevel)
{
    if (iLevel < 0 || iLevel > 2)
        return;
    if (iLevel == 2)
        g_sinks.m_pPrepare();
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
    neverRaise([&] {
        CString sMessage;
        sMessage.FormatV(sFormat, arguments);
        g_sinks.m_pTrace(sMessage);
    });
    va_end(arguments);
}

void Detail::assertionFailed(const char* sSource, int iLine, const char* sExpression) noexcept
{
    neverRaise([&] { g_sinks.m_pAssertion(sSource, iLine, sExpression); });
    if (::IsDebuggerPresent())
        ::DebugBreak();
}

}  // namespace Tesk
