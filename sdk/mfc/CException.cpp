#include "mfc/CException.h"

#include <cstring>

BOOL CException::GetErrorMessage(char* buffer, UINT capacity) const
{
    if (buffer && capacity)
        *buffer = '\0';
    return FALSE;
}

BOOL CException::copyMessage(const CString& message, char* buffer, UINT capacity)
{
    if (!buffer || capacity == 0)
        return FALSE;
    const auto length = static_cast<UINT>(message.GetLength());
    UINT copied = 0;
    while (copied < length) {
        const UINT next = copied + (copied + 1 < length && AfxIsLeadByte(message[static_cast<int>(copied)]) ? 2 : 1);
        if (next >= capacity)
            break;
        copied = next;
    }
    std::memcpy(buffer, message.GetString(), copied);
    buffer[copied] = '\0';
    return TRUE;
}

CFileException::CFileException(int errorNumber, const char* path) : m_nErrno(errorNumber), m_strFileName(path) {}

void CFileException::ThrowErrno(int errorNumber, const char* path) { throw new CFileException(errorNumber, path); }

BOOL CFileException::GetErrorMessage(char* buffer, UINT capacity) const
{
    return copyMessage(m_strFileName + ": " + std::strerror(m_nErrno), buffer, capacity);
}
