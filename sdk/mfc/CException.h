#pragma once

// Exceptions are thrown as heap objects: `throw new X`. The catcher takes a
// pointer, owns it and frees it with Delete().
#include "mfc/CString.h"

#include <windows.h>

class CException {
public:
    CException() = default;
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    virtual ~CException() = default;

    // Writes at most nMaxError bytes, terminator included. FALSE, with an empty
    // text where there is room for one, when there is no message.
    virtual BOOL GetErrorMessage(char* sError, UINT nMaxError, UINT* pnHelpContext = nullptr);
    void Delete() { delete this; }
};

// A failed file operation: which file, and why.
class CFileException : public CException {
public:
    enum { none, genericException, fileNotFound, accessDenied = 5 };

    explicit CFileException(int cause = none, LONG lOsError = -1, const char* sFileName = nullptr);

    // Throws for an errno value, whose text is the message.
    [[noreturn]] static void ThrowErrno(int nErrno, const char* sFileName = nullptr);

    BOOL GetErrorMessage(char* sError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;

    int m_cause;
    LONG m_lOsError;  // here the errno value
    CString m_strFileName;
};
