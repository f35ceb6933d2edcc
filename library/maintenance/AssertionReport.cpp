#include "library/maintenance/AssertionReport.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "library/files/PathParts.h"
#include "library/files/SupportFileLocator.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/maintenance/GUIConsole.h"
#include "library/maintenance/StackWalker.h"
#include "library/text/StringView.h"
#include "library/threads/CriticalSection.h"

#include <windows.h>

namespace Tesk {

namespace {

// Reports are made up and shown by one thread at a time; a box's modal loop,
// or what a report looks up, may bring that thread back here.
CCriticalSection g_reportSection;
int g_iReportDepth = 0;
constexpr int kDeepestReport = 8;

class CReportDepth {
public:
    CReportDepth() : m_lock(g_reportSection) { ++g_iReportDepth; }
    ~CReportDepth() { --g_iReportDepth; }
    CReportDepth(const CReportDepth&) = delete;
    CReportDepth& operator=(const CReportDepth&) = delete;

private:
    CLock m_lock;
};

// A check that fails while the log is written is dropped: a thread must not
// wait for another's box with the log in its hands.
void report(const char* sSource, int iLine, const char* sExpression)
{
    if (CDiagnosticsLog::get().isAppending())
        return;
    CString sShort, sLong;
    const CString sStack = describeCallStack();
    {
        const CReportDepth depth;
        if (g_iReportDepth > kDeepestReport)
            return;
        const CString sModuleFile = getLocation(LOCATION_FILE_MODULE);
        const CString sModule = toCString(CPathParts(viewOf(sModuleFile)).fileName());
        sShort.Format("%s(%d): Assertion in \"%s\" (%s).\n", sSource, iLine, sModule.GetString(), sExpression);
        sLong.Format("Module : <%s>\nAssertion : <%s>\nFile : <%s>\nLine : %d\n\n%s", sModule.GetString(), sExpression,
                     sSource, iLine, sStack.GetString());
        if (g_iReportDepth == 1)
            ::MessageBoxA(nullptr, sLong, "Assertion Failure: " + sModule, MB_OK | MB_ICONSTOP);
    }
    writeDiagnostic(sShort);
    writeDiagnostic(sStack);
}

}  // namespace

void writeDiagnostic(const char* sText) noexcept
{
    const Detail::CDiagnosticsSwitches switches = Detail::g_switches;
    if (!switches.m_bConsole && !switches.m_bLog)
        return;
    neverRaise([&] {
        const CString sLine = Detail::timeStamp() + sText;
        if (switches.m_bConsole) {
            CGUIConsole::get().writeLine(viewOf(sLine));
            Detail::sendToDebugger(sLine);
        }
        if (switches.m_bLog)
            CDiagnosticsLog::get().append(sLine);
    });
}

void reportAssertion(const char* sSource, int iLine, const char* sExpression) noexcept
{
    neverRaise([&] { report(CPathParts(sSource).m_sBase.c_str(), iLine, sExpression); });
}

CString Detail::timeStamp() { return CDiagnosticsLog::now("[%H:%M:%S] "); }

void Detail::sendToDebugger(const CString& sLine)
{
    if (::IsDebuggerPresent())
        ::OutputDebugStringA(sLine);
}

}  // namespace Tesk
