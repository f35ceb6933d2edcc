#include "reactors/DatabaseReactor.h"

#include "library/diagnostics/Guard.h"
#include "library/diagnostics/Prerelease.h"
#include "reactors/DocManagerReactor.h"

CDatabaseReactor::~CDatabaseReactor() = default;

void CDatabaseReactor::objectAppended(const AcDbDatabase* pDatabase, const AcDbObject*) { checkModified(pDatabase); }

void CDatabaseReactor::objectUnAppended(const AcDbDatabase* pDatabase, const AcDbObject*) { checkModified(pDatabase); }

void CDatabaseReactor::objectReAppended(const AcDbDatabase* pDatabase, const AcDbObject*) { checkModified(pDatabase); }

void CDatabaseReactor::objectModified(const AcDbDatabase* pDatabase, const AcDbObject*) { checkModified(pDatabase); }

void CDatabaseReactor::objectErased(const AcDbDatabase* pDatabase, const AcDbObject*, Adesk::Boolean)
{
    checkModified(pDatabase);
}

void CDatabaseReactor::headerSysVarChanged(const AcDbDatabase* pDatabase, const char*, Adesk::Boolean bSuccess)
{
    if (bSuccess)
        checkModified(pDatabase);
}

void CDatabaseReactor::checkModified(const AcDbDatabase* pDatabase)
{
    Tesk::guarded("CDatabaseReactor::checkModified", [&] {
        AcApDocument* pDocument = acDocManager->document(pDatabase);
        TESK_ASSERT(pDocument != NULL);
        CDocManagerReactor* pReactor = CDocManagerReactor::getReactor();
        if (pDocument == nullptr || pReactor == nullptr)
            return;
        const bool bWas = pReactor->wasDatabaseModified(pDocument);
        const bool bIs = CDocManagerReactor::isDatabaseModified(pDocument);
        if (bWas != bIs)
            pReactor->updateDatabaseModifiedFlag(pDocument);
    });
}
