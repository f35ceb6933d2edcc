#pragma once

// Run-time classes: every API class knows its class object and its parent's.

#include "objectarx/adesk.h"

class AcRxClass;

class AcRxObject {
public:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;
    virtual ~AcRxObject() = default;

    static ADESK_API AcRxClass* desc();

    // The class object of the nearest class that declares one.
    virtual AcRxClass* isA() const { return desc(); }
    inline bool isKindOf(const AcRxClass* pClass) const;
};

class AcRxClass : public AcRxObject {
public:
    virtual const char* name() const = 0;
    // Null for the root class.
    virtual AcRxClass* myParent() const = 0;

    bool isDerivedFrom(const AcRxClass* pClass) const
    {
        for (const AcRxClass* p = this; p != nullptr; p = p->myParent())
            if (p == pClass)
                return true;
        return false;
    }
};

inline bool AcRxObject::isKindOf(const AcRxClass* pClass) const { return isA()->isDerivedFrom(pClass); }

// Gives an API class its class object (defined by the host) and a checked cast
// that answers null for an object of another class.
#define ACRX_DECLARE_MEMBERS(CLASS) \
    static ADESK_API AcRxClass* desc(); \
    AcRxClass* isA() const override { return desc(); } \
    static CLASS* cast(AcRxObject* p) { return p != nullptr && p->isKindOf(desc()) ? static_cast<CLASS*>(p) : nullptr; }
