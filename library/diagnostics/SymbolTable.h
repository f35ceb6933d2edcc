// Names code addresses: module and offset, and the symbol where dbghelp, loaded
// on demand, knows one. It works in a symbol session of its own, so that one
// that the host may have open stays as it is.
#pragma once

#include "mfc/afx.h"
#include "mfc/handles.h"

#include <windows.h>

namespace Tesk {

class CSymbolTable {
public:
    CSymbolTable();
    ~CSymbolTable();
    CSymbolTable(const CSymbolTable&) = delete;
    CSymbolTable& operator=(const CSymbolTable&) = delete;

    // "module.dll + 0x1234", with " (symbol + 0x12)" where there is one; the
    // bare address where it is in no module.
    CString describe(const void* pAddress) const;

private:
    CString findSymbol(HMODULE hModule, const char* sModule, const void* pAddress) const;

    UniqueModule m_dbghelp;
    UniqueHandle m_session;     // set only while the symbol session is open
};

}
