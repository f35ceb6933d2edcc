#include "library/diagnostics/MiniDumper.h"

#include "library/system/Handles.h"

#include <dbghelp.h>

namespace Tesk {

namespace {
const CMiniDumper* g_pInstalled = nullptr;
}  // namespace

CMiniDumper::CMiniDumper(const CString& sFileName) : m_sFileName(sFileName)
{
    g_pInstalled = this;
    m_pPreviousFilter = ::SetUnhandledExceptionFilter(filter);
}

CMiniDumper::~CMiniDumper()
{
    ::SetUnhandledExceptionFilter(m_pPreviousFilter);
    g_pInstalled = nullptr;
}

bool CMiniDumper::write(EXCEPTION_POINTERS* pException) const
{
    const UniqueModule dbghelp(::LoadLibraryA("dbghelp.dll"));
    if (!dbghelp)
        return false;
    const auto pWriteDump = reinterpret_cast<decltype(&::MiniDumpWriteDump)>(
        reinterpret_cast<void*>(::GetProcAddress(dbghelp.get(), "MiniDumpWriteDump")));
    const UniqueHandle file(::CreateFileA(m_sFileName, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!pWriteDump || !file)
        return false;
    MINIDUMP_EXCEPTION_INFORMATION information = {::GetCurrentThreadId(), pException, FALSE};
    return pWriteDump(::GetCurrentProcess(), ::GetCurrentProcessId(), file.get(), MiniDumpNormal,
                      pException ? &information : nullptr, nullptr, nullptr) != FALSE;
}

LONG WINAPI CMiniDumper::filter(EXCEPTION_POINTERS* pException)
{
    if (!g_pInstalled)
        return EXCEPTION_CONTINUE_SEARCH;
    g_pInstalled->write(pException);
    return g_pInstalled->m_pPreviousFilter ? g_pInstalled->m_pPreviousFilter(pException) : EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace Tesk
