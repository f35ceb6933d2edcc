#pragma once

// Dictionaries of the host's services, and the two that everything is found through.

#include "objectarx/rxobject.h"

class AcRxDictionary : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary)

    // The entry under the name, not owned by the caller; null when there is none.
    virtual AcRxObject* at(const char* sName) const = 0;
};

// The host's system registry; it holds the class dictionary under "ClassDictionary".
ADESK_API AcRxDictionary* acrxSysRegistry();

#define acrxClassDictionary (AcRxDictionary::cast(acrxSysRegistry()->at("ClassDictionary")))
