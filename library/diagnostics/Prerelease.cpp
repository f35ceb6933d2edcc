#include "library/diagnostics/Prerelease.h"

#include <windows.h>

#include <cstdarg>
#include <string>

namespace Tesk {

Detail::CDiagnosticsSwitches Detail::g_switches;

namespace {
int g_iLevel = 0;
}

void setDiagnosticsLevel(int iLevel)
{
    if (iLevel < 0 || iLevel > 2)
        return;
    g_iLevel = iLevel;
    Detail::g_switches.m_bTrace = Detail::g_switches.m_bConsole = Detail::g_switches.m_bLog = iLevel == 2;
    Detail::g_switches.m_bAssertions = iLevel >= 1;
}

int getDiagnosticsLevel() { return g_iLevel; }

void trace(const char* sFormat, ...) noexcept
{
    if (!isTraceEnabled())
        return;
    char text[1024];
    va_list arguments;
    va_start(arguments, sFormat);
    vsnprintf(text, sizeof text, sFormat, arguments);
    va_end(arguments);
    ::OutputDebugStringA(text);
}

void writeDiagnostic(const char* sText) noexcept { ::OutputDebugStringA(sText); }

void reportAssertion(const char* sSource, int iLine, const char* sExpression) noexcept
{
    char text[1024];
    snprintf(text, sizeof text, "%s(%d): Assertion (%s).\n", sSource, iLine, sExpression);
    ::MessageBoxA(nullptr, text, "Assertion Failure", MB_OK | MB_ICONSTOP);
    writeDiagnostic(text);
}

void Detail::assertionFailed(const char* sSource, int iLine, const char* sExpression) noexcept
{
    std::string sName(sSource);
    reportAssertion(sName.substr(0, sName.find('.')).c_str(), iLine, sExpression);
    if (::IsDebuggerPresent())
        ::DebugBreak();
}

}
