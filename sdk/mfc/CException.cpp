#include "mfc/CException.h"

#include <cerrno>
#include <cstring>

BOOL CException::GetErrorMessage(char* sError, UINT nMaxError, UINT*)
{
    if (sError && nMaxError)
        *sError = '\0';
    return FALSE;
}

CFileException::CFileException(int cause, LONG lOsError, const char* sFileName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(sFileName)
{
}

void CFileException::ThrowErrno(int nErrno, const char* sFileName)
{
    const int cause = nErrno == ENOENT ? fileNotFound : nErrno == EACCES ? accessDenied : genericException;
    throw new CFileException(cause, nErrno, sFileName);
}

BOOL CFileException::GetErrorMessage(char* sError, UINT nMaxError, UINT*)
{
    if (!sError || nMaxError == 0)
        return FALSE;
    ::lstrcpynA(sError, m_strFileName + ": " + std::strerror(m_lOsError), static_cast<int>(nMaxError));
    return TRUE;
}
