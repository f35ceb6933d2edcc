#pragma once

// The entities that the module looks at: block references and their attributes.

#include "objectarx/dbmain.h"
#include "objectarx/gepnt3d.h"

class AcDbBlockReference : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockReference)

    // In file order; the iterator is the caller's to delete.
    virtual AcDbObjectIterator* attributeIterator() const = 0;
};

class AcDbText : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(AcDbText)

    // A new string, freed with acutDelString.
    virtual char* textString() const = 0;
    // eNotOpenForWrite unless opened for write.
    virtual Acad::ErrorStatus setTextString(const char* sText) = 0;
    virtual AcGePoint3d position() const = 0;
    virtual AcGePoint3d alignmentPoint() const = 0;
    virtual AcGeVector3d normal() const = 0;
    virtual double height() const = 0;
    // Radians.
    virtual double oblique() const = 0;
    virtual AcDb::TextHorzMode horizontalMode() const = 0;
    virtual Adesk::Boolean isMirroredInX() const = 0;
    virtual Adesk::Boolean isMirroredInY() const = 0;
};

class AcDbAttribute : public AcDbText {
public:
    ACRX_DECLARE_MEMBERS(AcDbAttribute)

    // A new string, freed with acutDelString.
    virtual char* tag() const = 0;
    virtual Adesk::UInt32 fieldLength() const = 0;
    virtual Adesk::Boolean isInvisible() const = 0;
    virtual Adesk::Boolean isConstant() const = 0;
    virtual Adesk::Boolean isVerifiable() const = 0;
    virtual Adesk::Boolean isPreset() const = 0;
};
