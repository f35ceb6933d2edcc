#include "library/diagnostics/SymbolTable.h"

#include <dbghelp.h>

#include <cstdint>

namespace Tesk {

namespace {

template <class Function>
Function lookUp(const UniqueModule& module, const char* sName)
{
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module.get(), sName)))
                  : nullptr;
}

HMODULE moduleOf(const void* pAddress)
{
    MEMORY_BASIC_INFORMATION region = {};
    if (!::VirtualQuery(pAddress, &region, sizeof region))
        return nullptr;
    return static_cast<HMODULE>(region.AllocationBase);
}

unsigned distance(const void* pFrom, const void* pTo)
{
    return static_cast<unsigned>(static_cast<const char*>(pTo) - static_cast<const char*>(pFrom));
}

}

// Left as it is when the process ends: dbghelp may be gone by then.
CSymbolTable& CSymbolTable::get()
{
    static auto* const pTable = new CSymbolTable;
    return *pTable;
}

// A session is known by its process handle: a duplicate makes it another one.
void CSymbolTable::open()
{
    if (m_dbghelp)
        return;
    m_dbghelp = UniqueModule(::LoadLibraryA("dbghelp.dll"));
    const auto pInitialise = lookUp<decltype(&::SymInitialize)>(m_dbghelp, "SymInitialize");
    HANDLE hProcess = nullptr;
    if (!pInitialise || !::DuplicateHandle(::GetCurrentProcess(), ::GetCurrentProcess(), ::GetCurrentProcess(),
                                           &hProcess, 0, FALSE, DUPLICATE_SAME_ACCESS))
        return;
    UniqueHandle process(hProcess);
    if (pInitialise(process.get(), nullptr, FALSE))
        m_session = std::move(process);
}

void CSymbolTable::release()
{
    const CLock lock(m_section);
    const auto pCleanup = lookUp<decltype(&::SymCleanup)>(m_dbghelp, "SymCleanup");
    if (m_session && pCleanup)
        pCleanup(m_session.get());
    m_session.reset();
    m_dbghelp.reset();
}

CString CSymbolTable::describe(const void* pAddress)
{
    const CLock lock(m_section);
    open();
    CString sText;
    const HMODULE hModule = moduleOf(pAddress);
    char sPath[MAX_PATH] = "";
    const DWORD dwLength = hModule ? ::GetModuleFileNameA(hModule, sPath, MAX_PATH) : 0;
    if (dwLength == 0 || dwLength >= MAX_PATH) {
        sText.Format("0x%p", pAddress);
        return sText;
    }
    const CString sModule(sPath);
    sText.Format("%s + 0x%x", sModule.Mid(sModule.ReverseFind('\\') + 1).GetString(), distance(hModule, pAddress));
    return sText + findSymbol(hModule, sPath, pAddress);
}

CString CSymbolTable::findSymbol(HMODULE hModule, const char* sModule, const void* pAddress)
{
    const auto pLoad = lookUp<decltype(&::SymLoadModule64)>(m_dbghelp, "SymLoadModule64");
    const auto pFind = lookUp<decltype(&::SymFromAddr)>(m_dbghelp, "SymFromAddr");
    CString sText;
    if (!m_session || !pLoad || !pFind)
        return sText;
    pLoad(m_session.get(), nullptr, sModule, nullptr, reinterpret_cast<UINT_PTR>(hModule), 0);
    alignas(SYMBOL_INFO) char buffer[sizeof(SYMBOL_INFO) + 256] = {};
    auto* pSymbol = reinterpret_cast<SYMBOL_INFO*>(buffer);
    pSymbol->SizeOfStruct = sizeof(SYMBOL_INFO);
    pSymbol->MaxNameLen = 256;
    DWORD64 qwOffset = 0;
    if (pFind(m_session.get(), reinterpret_cast<UINT_PTR>(pAddress), &qwOffset, pSymbol) && pSymbol->Name[0])
        sText.Format(" (%s + 0x%x)", pSymbol->Name, static_cast<unsigned>(qwOffset));
    return sText;
}

}
