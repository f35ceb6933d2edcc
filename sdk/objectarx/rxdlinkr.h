#pragma once

// The loader of modules.

#include "objectarx/rxobject.h"

class AcRxDynamicLinker : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)

    // Both take the packet that came with the init message; false when it names
    // no module that is being loaded.
    virtual bool unlockApplication(void* pkt) const = 0;
    virtual bool registerAppMDIAware(void* pkt) const = 0;
};

ADESK_API AcRxDynamicLinker* acrxDynamicLinkerPtr();

#define acrxDynamicLinker acrxDynamicLinkerPtr()
