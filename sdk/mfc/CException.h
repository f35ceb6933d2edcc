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

    // Writes at most `capacity` bytes, terminator included. FALSE, with an
    // empty text where there is room for one, when there is no message.
    virtual BOOL GetErrorMessage(char* buffer, UINT capacity) const;
    void Delete() { delete this; }

protected:
    // Copies a message into a caller's buffer, never half a double-byte character.
    static BOOL copyMessage(const CString& message, char* buffer, UINT capacity);
};

// A failed file operation: which file, and why.
class CFileException : public CException {
public:
    CFileException(int errorNumber, const char* path);

    // Throws for an errno value. The message reads "path: reason".
    [[noreturn]] static void ThrowErrno(int errorNumber, const char* path);

    BOOL GetErrorMessage(char* buffer, UINT capacity) const override;

    int m_nErrno = 0;
    CString m_strFileName;
};
