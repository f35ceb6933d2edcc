#pragma once

// The one place where a document's name is asked for.

#include "objectarx/acdocman.h"

namespace Tesk {

// The full path as the host has it, good until the document is renamed or closed; "" where
// the host has none.
inline const char* fileNameOf(const AcApDocument* pDocument)
{
    const char* sName = pDocument->fileName();
    return sName != nullptr ? sName : "";
}

}  // namespace Tesk
