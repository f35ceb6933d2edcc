// Names code addresses: module and offset, and the symbol where dbghelp, loaded
// on demand, knows one. It works in a symbol session of its own, so that one
// that the host may have open stays as it is.
#pragma once

#include "library/diagnostics/CriticalSection.h"
#include "mfc/afx.h"
#include "mfc/handles.h"

#include <windows.h>

namespace Tesk {

class CSymbolTable {
public:
    static CSymbolTable& get();

    // "module.dll + 0x1234", with " (symbol + 0x12)" where there is one; the
    // bare address where it is in no module. What is loaded for it stays for the
    // next address: loading symbols takes long.
    CString describe(const void* pAddress);

    // Closes the session and lets dbghelp go; a later address opens it again.
    void release();

private:
    CSymbolTable() = default;
    void open();
    CString findSymbol(HMODULE hModule, const char* sModule, const void* pAddress);

    CCriticalSection m_section;
    UniqueModule m_dbghelp;
    UniqueHandle m_session;     // set only while the symbol session is open
};

}
