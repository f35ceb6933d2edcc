#pragma once

// The host's open documents, as both reactors look at them.

#include "objectarx/acdocman.h"

#include <memory>

// Calls with each open document, in opening order.
template <class Call>
void forEachDocument(Call call)
{
    const std::unique_ptr<AcApDocumentIterator> pIterator(acDocManager->newAcApDocumentIterator());
    for (; pIterator != nullptr && !pIterator->done(); pIterator->step())
        if (AcApDocument* pDocument = pIterator->document())
            call(pDocument);
}

// The document whose drawing this very database is. Null for a drawing that was read for
// other purposes, whichever document the host names for it.
inline AcApDocument* documentOf(const AcDbDatabase* pDatabase)
{
    AcApDocument* pDocument = acDocManager->document(pDatabase);
    return pDocument != nullptr && pDocument->database() == pDatabase ? pDocument : nullptr;
}
