#include "host/CrashReport.h"

#include <windows.h>

#include <cstdio>

namespace host {

namespace {

const char* (*g_sDuring)() = nullptr;

// Null for what is no crash: C++ exceptions, debug output, breakpoints.
const char* nameOf(DWORD code)
{
    switch (code) {
    case EXCEPTION_ACCESS_VIOLATION:
        return "access violation";
    case EXCEPTION_IN_PAGE_ERROR:
        return "page that cannot be read";
    case EXCEPTION_DATATYPE_MISALIGNMENT:
        return "misaligned data";
    case EXCEPTION_STACK_OVERFLOW:
        return "stack overflow";
    case EXCEPTION_ILLEGAL_INSTRUCTION:
        return "illegal instruction";
    case EXCEPTION_PRIV_INSTRUCTION:
        return "privileged instruction";
    case EXCEPTION_INT_DIVIDE_BY_ZERO:
        return "division by zero";
    default:
        return nullptr;
    }
}

LONG CALLBACK onException(EXCEPTION_POINTERS* pException)
{
    const EXCEPTION_RECORD& record = *pException->ExceptionRecord;
    const char* const sName = nameOf(record.ExceptionCode);
    if (sName == nullptr)
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
    const char* const sDuring = g_sDuring != nullptr ? g_sDuring() : nullptr;
    std::fflush(stdout);
    std::fprintf(stderr, "CRASH: %s at %p (%s + 0x%lx)%s, thread %lu%s%s\n", sName, record.ExceptionAddress, sModule,
                 static_cast<unsigned long>(static_cast<const char*>(record.ExceptionAddress) - pBase), sData,
                 ::GetCurrentThreadId(), sDuring != nullptr ? ", during: " : "", sDuring != nullptr ? sDuring : "");
    std::fflush(stderr);
    // What was to see a crash that nobody handles sees this one: a dump is written.
    if (const LPTOP_LEVEL_EXCEPTION_FILTER pFilter = ::SetUnhandledExceptionFilter(nullptr))
        pFilter(pException);
    ::TerminateProcess(::GetCurrentProcess(), record.ExceptionCode);
    return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

void reportCrashes(const char* (*sDuring)())
{
    g_sDuring = sDuring;
    ::AddVectoredExceptionHandler(TRUE, onException);
}

}  // namespace host
