#pragma once

// A drawing's summary information: eight fields and custom key/value pairs.

#include "objectarx/dbmain.h"

class AcDbDatabaseSummaryInfo : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDatabaseSummaryInfo)

    // Each gives a new string, freed with acdbFree; it may be null.
    virtual Acad::ErrorStatus getTitle(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getSubject(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getAuthor(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getKeywords(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getComments(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getLastSavedBy(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getRevisionNumber(char*& sValue) const = 0;
    virtual Acad::ErrorStatus getHyperlinkBase(char*& sValue) const = 0;

    virtual Acad::ErrorStatus setTitle(const char* sValue) = 0;
    virtual Acad::ErrorStatus setSubject(const char* sValue) = 0;
    virtual Acad::ErrorStatus setAuthor(const char* sValue) = 0;
    virtual Acad::ErrorStatus setKeywords(const char* sValue) = 0;
    virtual Acad::ErrorStatus setComments(const char* sValue) = 0;
    virtual Acad::ErrorStatus setLastSavedBy(const char* sValue) = 0;
    virtual Acad::ErrorStatus setRevisionNumber(const char* sValue) = 0;
    virtual Acad::ErrorStatus setHyperlinkBase(const char* sValue) = 0;

    virtual int numCustomInfo() const = 0;
    virtual Acad::ErrorStatus getCustomSummaryInfo(int iIndex, char*& sKey, char*& sValue) const = 0;
    virtual Acad::ErrorStatus addCustomSummaryInfo(const char* sKey, const char* sValue) = 0;
    virtual Acad::ErrorStatus deleteCustomSummaryInfo(int iIndex) = 0;
};

// A copy of the database's information, the caller's to delete.
ADESK_API Acad::ErrorStatus acdbGetSummaryInfo(AcDbDatabase* pDatabase, AcDbDatabaseSummaryInfo*& pInfo);
// Stores the object into the database; the object stays the caller's. Without a
// database it goes to the working database.
ADESK_API Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo* pInfo, AcDbDatabase* pDatabase = nullptr);
