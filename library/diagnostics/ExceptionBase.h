#pragma once

// The base of the library's exceptions, which are thrown as heap objects and deleted by
// the catcher.

#include "mfc/afx.h"

namespace Tesk {

class CExceptionBase : public CException {
public:
    explicit CExceptionBase(const char* sExtraText = "") : m_sExtraText(sExtraText) {}

    // One text that derived messages append; may be empty.
    const CString& getExtraText() const { return m_sExtraText; }

    // Fills `sText` with the message; false when the error has none.
    virtual bool getErrorText(CString& sText) const = 0;

private:
    CString m_sExtraText;
};

// The message of a caught heap exception (of others than the library's at most 1,024
// characters; empty when there is none); the exception is deleted.
CString takeExceptionText(CException* pException);

}  // namespace Tesk
