#include "library/maintenance/MiniDumper.h"

#include "library/files/FileCleanup.h"
#include "library/maintenance/DiagnosticsLog.h"
#include "library/system/Handles.h"
#include "library/system/SystemLibrary.h"

#include <dbghelp.h>

namespace Tesk {

namespace {
constexpr int kKept = 5;
const CMiniDumper* g_pInstalled = nullptr;
}  // namespace

CMiniDumper::CMiniDumper(const CString& sStem)
    : m_sFileName(sStem + CDiagnosticsLog::now(" %Y-%m-%d %H-%M-%S.dmp")), m_sPattern(sStem + " *.dmp")
{
    g_pInstalled = this;
    m_pPreviousFilter = ::SetUnhandledExceptionFilter(filter);
}

CMiniDumper::~CMiniDumper()
{
    ::SetUnhandledExceptionFilter(m_pPreviousFilter);
    g_pInstalled = nullptr;
}

void CMiniDumper::write(EXCEPTION_POINTERS* pException) const
{
    const UniqueModule dbghelp = loadSystemLibrary("dbghelp.dll");
    if (!dbghelp)
        return;
    const auto pWriteDump = reinterpret_cast<decltype(&::MiniDumpWriteDump)>(
        reinterpret_cast<void*>(::GetProcAddress(dbghelp.get(), "MiniDumpWriteDump")));
    const UniqueHandle file(::CreateFileA(m_sFileName, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!pWriteDump || !file)
        return;
    MINIDUMP_EXCEPTION_INFORMATION information = {::GetCurrentThreadId(), pException, FALSE};
    pWriteDump(::GetCurrentProcess(), ::GetCurrentProcessId(), file.get(), MiniDumpNormal,
               pException ? &information : nullptr, nullptr, nullptr);
    keepNewestFiles(m_sPattern, kKept);
}

LONG WINAPI CMiniDumper::filter(EXCEPTION_POINTERS* pException)
{
    if (!g_pInstalled)
        return EXCEPTION_CONTINUE_SEARCH;
    g_pInstalled->write(pException);
    return g_pInstalled->m_pPreviousFilter ? g_pInstalled->m_pPreviousFilter(pException) : EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace Tesk
