#pragma once

// The listener on one drawing: notices that its modified state may have changed.
// CDocManagerReactor owns one for every open document.

#include "objectarx/dbmain.h"

class CDatabaseReactor : public AcDbDatabaseReactor {
public:
    ~CDatabaseReactor() override;

    void objectAppended(const AcDbDatabase* pDatabase, const AcDbObject* pObject) override;
    void objectUnAppended(const AcDbDatabase* pDatabase, const AcDbObject* pObject) override;
    void objectReAppended(const AcDbDatabase* pDatabase, const AcDbObject* pObject) override;
    void objectModified(const AcDbDatabase* pDatabase, const AcDbObject* pObject) override;
    void objectErased(const AcDbDatabase* pDatabase, const AcDbObject* pObject, Adesk::Boolean bErased) override;
    // Looks only when the change succeeded, at whichever variable it was.
    void headerSysVarChanged(const AcDbDatabase* pDatabase, const char* sName, Adesk::Boolean bSuccess) override;

private:
    // Compares the drawing's modified state with the one last known, and has the
    // document manager's reactor pass a difference on.
    static void checkModified(const AcDbDatabase* pDatabase);
};
