#pragma once

// What the tests of drawings share: a border, and a reactor that
// writes down what it hears.

#include "host/drawing/Database.h"
#include "tests/support/DrawingText.h"
#include "tests/support/TestFolder.h"

#include "objectarx/dbents.h"
#include "objectarx/dbsymtb.h"

#include <windows.h>

#include <string>
#include <vector>

#include <doctest/doctest.h>

// A border with two attributes, inserted once.
inline const char kBorderBlock[] =
    "|0=BLOCK|8=0|2=Border|70=2|10=1.0|20=0.0|0=ATTDEF|5=30|8=0|10=3.0|20=4.0|40=2.5|1=none"
    "|3=Number?|2=NUMBER|70=8|0=ATTDEF|5=31|8=0|10=3.0|20=1.0|40=2.5|1=fixed|3=|2=FIX|70=2"
    "|0=ENDBLK|8=0";
inline const char kBorderInsert[] =
    "|0=INSERT|5=40|8=0|66=1|2=BORDER|10=0.0|20=0.0|0=ATTRIB|5=41|8=0|10=2.0|20=3.5|40=2.5"
    "|1=A-1|2=NUMBER|70=5|72=2|11=6.0|21=7.0|51=45.0|71=2|73=12|210=0.0|220=0.0|230=-1.0"
    "|0=ATTRIB|5=42|8=0|10=2.0|20=1.0|40=2.5|1=First|2=TITLE|70=0|0=SEQEND|8=0";

class RecordingReactor : public AcDbDatabaseReactor {
public:
    // The calls since the last look, a blank between them; each with DBMOD when it came.
    std::string heard()
    {
        std::string sAll;
        std::swap(sAll, m_sHeard);
        return sAll;
    }

    void objectAppended(const AcDbDatabase* p, const AcDbObject*) override { note(p, "appended"); }
    void objectUnAppended(const AcDbDatabase* p, const AcDbObject*) override { note(p, "unAppended"); }
    void objectReAppended(const AcDbDatabase* p, const AcDbObject*) override { note(p, "reAppended"); }
    void objectOpenedForModify(const AcDbDatabase* p, const AcDbObject*) override { note(p, "opened"); }
    void objectModified(const AcDbDatabase* p, const AcDbObject*) override { note(p, "modified"); }
    void objectErased(const AcDbDatabase* p, const AcDbObject*, Adesk::Boolean bErased) override
    {
        note(p, bErased ? "erased" : "unErased");
    }
    void headerSysVarWillChange(const AcDbDatabase* p, const char* s) override { note(p, std::string("will:") + s); }
    void headerSysVarChanged(const AcDbDatabase* p, const char* s, Adesk::Boolean bOk) override
    {
        note(p, std::string(bOk ? "did:" : "failed:") + s);
    }
    void goodbye(const AcDbDatabase*) override { m_sHeard += m_sHeard.empty() ? "goodbye" : " goodbye"; }

private:
    void note(const AcDbDatabase* p, const std::string& sCall)
    {
        m_sHeard += (m_sHeard.empty() ? "" : " ") + sCall + std::to_string(host::Database::of(p)->dbmod());
    }
    std::string m_sHeard;
};

inline std::vector<AcDbObjectId> references(host::Database& database, const char* sName)
{
    std::vector<AcDbObjectId> result;
    AcDbBlockTable* pTable = nullptr;
    AcDbBlockTableRecord* pRecord = nullptr;
    REQUIRE(database.getSymbolTable(pTable, AcDb::kForRead) == Acad::eOk);
    if (pTable->getAt(sName, pRecord, AcDb::kForRead) == Acad::eOk) {
        AcDbObjectIdArray ids;
        pRecord->getBlockReferenceIds(ids);
        pRecord->close();
        for (int i = 0; i < ids.length(); ++i)
            result.push_back(ids[i]);
    }
    pTable->close();
    return result;
}

inline std::string taken(char* sText)
{
    const std::string sResult = sText == nullptr ? "(null)" : sText;
    acutDelString(sText);
    return sResult;
}

// "TAG=text" of a reference's attributes, a blank between them.
inline std::string attributes(AcDbObjectId id)
{
    std::string sAll;
    AcDbEntity* pEntity = nullptr;
    if (acdbOpenAcDbEntity(pEntity, id, AcDb::kForRead) != Acad::eOk)
        return "(closed)";
    if (AcDbBlockReference* pReference = AcDbBlockReference::cast(pEntity)) {
        AcDbObjectIterator* pIterator = pReference->attributeIterator();
        for (; !pIterator->done(); pIterator->step()) {
            AcDbObject* pObject = nullptr;
            acdbOpenAcDbObject(pObject, pIterator->objectId(), AcDb::kForRead);
            if (AcDbAttribute* pAttribute = AcDbAttribute::cast(pObject))
                sAll += (sAll.empty() ? "" : " ") + taken(pAttribute->tag()) + "=" + taken(pAttribute->textString());
            if (pObject != nullptr)
                pObject->close();
        }
        delete pIterator;
    }
    pEntity->close();
    return sAll;
}
