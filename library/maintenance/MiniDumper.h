#pragma once

// Writes a crash dump beside the diagnostics log when the process is about to
// die of an unhandled exception, and keeps the five newest. Off unless initialiseLibrary
// is asked for it: the filter it sets belongs to the whole process.

#include "mfc/afx.h"

#include <windows.h>

namespace Tesk {

class CMiniDumper {
public:
    // Sets the process's exception filter, keeping the one before it. Dumps are named after
    // `sStem` (a path without extension) and the time now: nothing can be looked up in a
    // dying process.
    explicit CMiniDumper(const CString& sStem);

    // Restores the filter that was set before.
    ~CMiniDumper();

    CMiniDumper(const CMiniDumper&) = delete;
    CMiniDumper& operator=(const CMiniDumper&) = delete;

private:
    // Writes the dump, where dbghelp is there, and deletes those of the same stem but the five
    // newest; the exception may be null.
    void write(EXCEPTION_POINTERS* pException) const;
    static LONG WINAPI filter(EXCEPTION_POINTERS* pException);

    CString m_sFileName;
    CString m_sPattern;
    LPTOP_LEVEL_EXCEPTION_FILTER m_pPreviousFilter;
};

}  // namespace Tesk
