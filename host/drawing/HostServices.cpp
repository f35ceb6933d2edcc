#include "host/drawing/HostServices.h"

#include "dxf/ObjectGraph.h"
#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"

namespace host {

namespace {

HostServices& services()
{
    static HostServices s_services;
    return s_services;
}

}  // namespace

AcDbDatabase* HostServices::workingDatabase() const { return m_pWorking; }

void HostServices::setWorkingDatabase(AcDbDatabase* pDatabase) { m_pWorking = pDatabase; }

void forgetWorkingDatabase(const AcDbDatabase* pDatabase)
{
    if (services().m_pWorking == pDatabase)
        services().m_pWorking = nullptr;
}

}  // namespace host

AcDbHostApplicationServices* acdbHostApplicationServices() { return &host::services(); }
