#pragma once

// Drawing databases, their objects, and the listener on a database.

#include "objectarx/acadstrc.h"
#include "objectarx/adsdef.h"
#include "objectarx/dbid.h"
#include "objectarx/rxobject.h"

struct AcDb {
    enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };

    enum XrefStatus {
        kXrfNotAnXref = 0,
        kXrfResolved = 1,
        kXrfUnloaded = 2,
        kXrfUnreferenced = 3,
        kXrfFileNotFound = 4,
        kXrfUnresolved = 5,
    };

    enum TextHorzMode {
        kTextLeft = 0,
        kTextCenter = 1,
        kTextRight = 2,
        kTextAlign = 3,
        kTextMid = 4,
        kTextFit = 5,
    };
};

class AcDbBlockTable;
class AcDbDatabase;
class AcDbDatabaseReactor;

// An object of a database. It is reached by opening it and must be closed again;
// the pointer is dead after close.
class AcDbObject : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObject)

    virtual Acad::ErrorStatus close() = 0;
    virtual AcDbObjectId objectId() const = 0;
    virtual void getAcDbHandle(AcDbHandle& handle) const = 0;
    virtual AcDbDatabase* database() const = 0;
};

class AcDbEntity : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbEntity)
};

class AcDbObjectIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbObjectIterator)

    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcDbObjectId objectId() const = 0;
};

class AcDbDatabase : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabase)

    // The reactor stays the caller's. Adding one twice, or removing one that was
    // not added, is an error.
    virtual Acad::ErrorStatus addReactor(AcDbDatabaseReactor* pReactor) const = 0;
    virtual Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* pReactor) const = 0;

    virtual Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) = 0;
};

// Hears of every change in one database. All notifications arrive on the
// user-interface thread.
class AcDbDatabaseReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseReactor)

    virtual void objectAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectUnAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectReAppended(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectOpenedForModify(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectModified(const AcDbDatabase*, const AcDbObject*) {}
    virtual void objectErased(const AcDbDatabase*, const AcDbObject*, Adesk::Boolean /*bErased*/) {}
    virtual void headerSysVarWillChange(const AcDbDatabase*, const char* /*name*/) {}
    virtual void headerSysVarChanged(const AcDbDatabase*, const char* /*name*/, Adesk::Boolean /*bSuccess*/) {}
    virtual void proxyResurrectionCompleted(const AcDbDatabase*, const char* /*appName*/, AcDbObjectIdArray&) {}
    virtual void goodbye(const AcDbDatabase*) {}
};

// Open an object of any database by its id.
ADESK_API Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObject, AcDbObjectId id, AcDb::OpenMode mode,
                                               bool bOpenErased = false);
ADESK_API Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& pEntity, AcDbObjectId id, AcDb::OpenMode mode,
                                               bool bOpenErased = false);

// From a handle in the working database to an entity name, and from there to
// the id. The first answers RTNORM or RTERROR.
ADESK_API int acdbHandEnt(const char* sHandle, ads_name entity);
ADESK_API Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity);

// The full path under which an xref database was attached; the host's string,
// null when the database is no xref's.
ADESK_API const char* acdbOriginalXrefFullPathFor(const AcDbDatabase* pXrefDatabase);

// Frees what an API call allocated for its caller.
ADESK_API void acdbFree(void* pMemory);
