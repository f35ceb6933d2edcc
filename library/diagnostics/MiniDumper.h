#pragma once

// Writes a crash dump beside the diagnostics log when the process is about to
// die of an unhandled exception. Off unless initialiseLibrary is asked for it:
// the filter it sets belongs to the whole process.

#include "mfc/CString.h"

#include <windows.h>

namespace Tesk {

class CMiniDumper {
public:
    // Sets the process's exception filter, keeping the one before it. The file
    // is decided now: nothing can be looked up in a dying process.
    explicit CMiniDumper(const CString& sFileName);

    // Restores the filter that was set before.
    ~CMiniDumper();

    CMiniDumper(const CMiniDumper&) = delete;
    CMiniDumper& operator=(const CMiniDumper&) = delete;

    // Writes the dump now; the exception may be null. False when dbghelp is not
    // there or the file cannot be written.
    bool write(EXCEPTION_POINTERS* pException) const;

private:
    static LONG WINAPI filter(EXCEPTION_POINTERS* pException);

    CString m_sFileName;
    LPTOP_LEVEL_EXCEPTION_FILTER m_pPreviousFilter;
};

}  // namespace Tesk
