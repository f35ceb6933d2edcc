#pragma once

// The block table of a database and its records.

#include "objectarx/dbmain.h"

class AcDbBlockTableIterator;
class AcDbBlockTableRecord;

class AcDbBlockTable : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTable)

    // Names are compared without case.
    virtual bool has(const char* sName) const = 0;
    virtual Acad::ErrorStatus getAt(const char* sName, AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode,
                                    bool bOpenErased = false) const = 0;
    // The iterator is the caller's to delete.
    virtual Acad::ErrorStatus newIterator(AcDbBlockTableIterator*& pIterator, bool bAtBeginning = true,
                                          bool bSkipDeleted = true) const = 0;
};

class AcDbSymbolTableIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableIterator)

    virtual bool done() const = 0;
    virtual void step(bool bForward = true, bool bSkipDeleted = true) = 0;
};

class AcDbBlockTableIterator : public AcDbSymbolTableIterator {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableIterator)

    virtual Acad::ErrorStatus getRecord(AcDbBlockTableRecord*& pRecord, AcDb::OpenMode mode,
                                        bool bOpenErased = false) const = 0;
};

class AcDbBlockTableRecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)

    virtual bool isAnonymous() const = 0;
    virtual bool isLayout() const = 0;
    virtual bool isFromExternalReference() const = 0;
    virtual AcDb::XrefStatus xrefStatus() const = 0;
    // Null for a block that is no xref, or whose xref is not loaded; unresolved
    // ones are given only when asked for.
    virtual AcDbDatabase* xrefDatabase(bool bIncludeUnresolved = false) const = 0;
    // In the order in which the references stand in the drawing.
    virtual Acad::ErrorStatus getBlockReferenceIds(AcDbObjectIdArray& ids, bool bDirectOnly = true,
                                                   bool bForceValidity = false) = 0;
};
