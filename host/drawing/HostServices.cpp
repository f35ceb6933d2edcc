#include "host/drawing/HostServices.h"

#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"
#include "host/drawing/ObjectGraph.h"

namespace host {

namespace {

HostServices& services()
{
    static HostServices s_services;
    return s_services;
}

}  // namespace

AcDbDatabase* HostServices::workingDatabase() const { return m_pWorking; }

void HostServices::setWorkingDatabase(AcDbDatabase* pDatabase)
{
    if (!Faults::hit("AcDbHostApplicationServices::setWorkingDatabase"))
        m_pWorking = pDatabase;
}

void describeHost(const std::string& sRelease, const std::string& sProduct)
{
    services().m_sRelease = sRelease;
    services().m_sProduct = sProduct;
}

void forgetWorkingDatabase(const AcDbDatabase* pDatabase)
{
    if (services().m_pWorking == pDatabase)
        services().m_pWorking = nullptr;
}

}  // namespace host

AcDbHostApplicationServices* acdbHostApplicationServices() { return &host::services(); }

int acdbHandEnt(const char* sHandle, ads_name entity)
{
    entity[0] = entity[1] = 0;
    host::Database* pDatabase = host::Database::of(acdbHostApplicationServices()->workingDatabase());
    if (host::Faults::hit("acdbHandEnt") || sHandle == nullptr || pDatabase == nullptr)
        return RTERROR;
    AcDbStub* pNode = pDatabase->graph().find(host::toHandle(sHandle));
    if (pNode == nullptr || !pNode->isEntity() || pNode->erased)
        return RTERROR;
    entity[0] = reinterpret_cast<LONG_PTR>(pNode);
    return RTNORM;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name entity)
{
    id = AcDbObjectId();
    if (host::Faults::hit("acdbGetObjectId") || entity == nullptr || entity[0] == 0)
        return Acad::eInvalidInput;
    id = AcDbObjectId(reinterpret_cast<AcDbStub*>(entity[0]));
    return Acad::eOk;
}
