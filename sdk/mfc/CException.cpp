#include "mfc/CException.h"

#include <cerrno>
#include <cstring>

namespace {

CString systemReason(LONG error)
{
    char text[512] = "";
    ::FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                     static_cast<DWORD>(error), 0, text, sizeof text, nullptr);
    CString reason(text);
    reason.TrimRight();
    if (reason.IsEmpty())
        reason.Format("error %ld", error);
    return reason;
}

} // namespace

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

void CFileException::ThrowErrno(int errorNumber, const char* path)
{
    throw new CFileException(errorNumber, path);
}

void CFileException::ThrowOsError(LONG osError, const char* path)
{
    auto* exception = new CFileException(0, path);
    exception->m_lOsError = osError;
    throw exception;
}

BOOL CFileException::GetErrorMessage(char* buffer, UINT capacity) const
{
    const CString reason = m_nErrno ? CString(std::strerror(m_nErrno)) : systemReason(m_lOsError);
    return copyMessage(m_strFileName + ": " + reason, buffer, capacity);
}
