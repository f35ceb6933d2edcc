#include "objectarx/acdocman.h"
#include "objectarx/aced.h"
#include "objectarx/dbapserv.h"
#include "objectarx/dbents.h"
#include "objectarx/dbsymtb.h"
#include "objectarx/rxdict.h"
#include "objectarx/rxdlinkr.h"
#include "objectarx/summinfo.h"

namespace {

class ClassObject final : public AcRxClass {
public:
    ClassObject(const char* sName, AcRxClass* pParent) : m_sName(sName), m_pParent(pParent) {}

    const char* name() const override { return m_sName; }
    AcRxClass* myParent() const override { return m_pParent; }

private:
    const char* m_sName;
    AcRxClass* m_pParent;
};

}  // namespace

AcRxClass* AcRxObject::desc()
{
    static ClassObject s_class("AcRxObject", nullptr);
    return &s_class;
}

// The class objects of the API, one line a class.
#define CLASS_OBJECT(CLASS, PARENT) \
    AcRxClass* CLASS::desc() \
    { \
        static ClassObject s_class(#CLASS, PARENT::desc()); \
        return &s_class; \
    }

CLASS_OBJECT(AcRxDictionary, AcRxObject)
CLASS_OBJECT(AcRxDynamicLinker, AcRxObject)
CLASS_OBJECT(AcApDocument, AcRxObject)
CLASS_OBJECT(AcApDocumentIterator, AcRxObject)
CLASS_OBJECT(AcApDocManager, AcRxObject)
CLASS_OBJECT(AcApDocManagerReactor, AcRxObject)
CLASS_OBJECT(AcEditor, AcRxObject)
CLASS_OBJECT(AcEditorReactor, AcRxObject)
CLASS_OBJECT(AcEdCommandStack, AcRxObject)
CLASS_OBJECT(AcDbDatabase, AcRxObject)
CLASS_OBJECT(AcDbDatabaseReactor, AcRxObject)
CLASS_OBJECT(AcDbDatabaseSummaryInfo, AcRxObject)
CLASS_OBJECT(AcDbHostApplicationServices, AcRxObject)
CLASS_OBJECT(AcDbObjectIterator, AcRxObject)
CLASS_OBJECT(AcDbSymbolTableIterator, AcRxObject)
CLASS_OBJECT(AcDbBlockTableIterator, AcDbSymbolTableIterator)
CLASS_OBJECT(AcDbObject, AcRxObject)
CLASS_OBJECT(AcDbBlockTable, AcDbObject)
CLASS_OBJECT(AcDbBlockTableRecord, AcDbObject)
CLASS_OBJECT(AcDbEntity, AcDbObject)
CLASS_OBJECT(AcDbBlockReference, AcDbEntity)
CLASS_OBJECT(AcDbText, AcDbEntity)
CLASS_OBJECT(AcDbAttribute, AcDbText)
