#include "host/CrashReport.h"

#include <windows.h>

#include <cstdio>

namespace host {

namespace {

// Not C++ exceptions, debug output or breakpoints.
bool isCrash(DWORD code) { return (code & 0xFF000000) == 0xC0000000; }

LONG CALLBACK onException(EXCEPTION_POINTERS* pException)
{
    const EXCEPTION_RECORD& record = *pException->ExceptionRecord;
    if (!isCrash(record.ExceptionCode))
        return EXCEPTION_CONTINUE_SEARCH;
    MEMORY_BASIC_INFORMATION memory = {};
    ::VirtualQuery(record.ExceptionAddress, &memory, sizeof memory);
    const auto* const pBase = static_cast<const char*>(memory.AllocationBase);
    char sModule[MAX_PATH] = "";
    ::GetModuleFileNameA(static_cast<HMODULE>(memory.AllocationBase), sModule, sizeof sModule);
    char sData[48] = "";
    if (record.NumberParameters >= 2)
        std::snprintf(sData, sizeof sData, ", %s %p", record.ExceptionInformation[0] == 0 ? "reading" : "writing",
                      reinterpret_cast<const void*>(record.ExceptionInformation[1]));
    std::fflush(stdout);
    std::fprintf(stderr, "CRASH: %08lx at %p (%s + 0x%lx)%s, thread %lu\n", record.ExceptionCode,
                 record.ExceptionAddress, sModule,
                 static_cast<unsigned long>(static_cast<const char*>(record.ExceptionAddress) - pBase), sData,
                 ::GetCurrentThreadId());
    std::fflush(stderr);
    // What was to see a crash that nobody handles sees this one: a dump is written.
    if (const LPTOP_LEVEL_EXCEPTION_FILTER pFilter = ::SetUnhandledExceptionFilter(nullptr))
        pFilter(pException);
    ::TerminateProcess(::GetCurrentProcess(), record.ExceptionCode);
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

void reportCrashes() { ::AddVectoredExceptionHandler(TRUE, onException); }

}  // namespace host
