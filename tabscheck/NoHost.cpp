#include "tabscheck/NoHost.h"

// What the library calls of a running host: here there is none.

#include "objectarx/acdocman.h"
#include "objectarx/acedads.h"
#include "objectarx/acutads.h"
#include "objectarx/dbapserv.h"
#include "objectarx/summinfo.h"

namespace tabscheck {

namespace {

class Services final : public AcDbHostApplicationServices {
public:
    AcDbDatabase* workingDatabase() const override { return m_pWorking; }
    void setWorkingDatabase(AcDbDatabase* pDatabase) override { m_pWorking = pDatabase; }
    const char* releaseMajorMinorString() const override { return m_sRelease.c_str(); }
    const char* product() const override { return m_sProduct.c_str(); }

    std::string m_sRelease;
    std::string m_sProduct;

private:
    AcDbDatabase* m_pWorking = nullptr;
};

Services s_services;

}  // namespace

void describeHost(const std::string& sRelease, const std::string& sProduct)
{
    s_services.m_sRelease = sRelease;
    s_services.m_sProduct = sProduct;
}

}  // namespace tabscheck

AcDbHostApplicationServices* acdbHostApplicationServices() { return &tabscheck::s_services; }

AcApDocManager* acDocManagerPtr() { return nullptr; }

Acad::ErrorStatus acdbPutSummaryInfo(const AcDbDatabaseSummaryInfo*, AcDbDatabase*) { return Acad::eNotApplicable; }

int acedGetVar(const char*, resbuf*) { return RTERROR; }

int acedSetVar(const char*, const resbuf*) { return RTERROR; }

int acutPrintf(const char*, ...) { return RTNORM; }
