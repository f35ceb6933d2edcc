#pragma once

// What an action raises, as text; the exception is deleted.

#include "library/diagnostics/ExceptionBase.h"

#include <string>

// The message; empty when nothing is raised.
template <class Action>
std::string messageOf(Action action)
{
    try {
        action();
    } catch (CException* pException) {
        return Tesk::takeExceptionText(pException).GetString();
    }
    return {};
}

// A file error's number and path, as "2 C:\none.txt"; empty when nothing is raised.
template <class Action>
std::string fileErrorOf(Action action)
{
    try {
        action();
    } catch (CFileException* pException) {
        const std::string sError = std::to_string(pException->m_lOsError) + " " + pException->m_strFileName.GetString();
        pException->Delete();
        return sError;
    }
    return {};
}
