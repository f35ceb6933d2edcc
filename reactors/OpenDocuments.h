#pragma once

// The host's open documents.

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

// By the pointer alone, for a document that may be gone.
inline bool isOpen(const AcApDocument* pDocument)
{
    const std::unique_ptr<AcApDocumentIterator> pIterator(acDocManager->newAcApDocumentIterator());
    while (pIterator != nullptr && !pIterator->done() && pIterator->document() != pDocument)
        pIterator->step();
    return pDocument != nullptr && pIterator != nullptr && !pIterator->done();
}
