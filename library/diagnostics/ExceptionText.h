#pragma once

// The message of a caught heap exception.

#include "mfc/afx.h"

namespace Tesk {

// The message (of other exceptions than the library's at most 1,024 characters; empty
// when there is none); the exception is deleted.
CString takeExceptionText(CException* pException);

}  // namespace Tesk
