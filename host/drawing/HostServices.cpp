// The host application's services: above all the working database.

#include "host/drawing/Database.h"
#include "objectarx/dbapserv.h"

namespace host {

class HostServices final : public AcDbHostApplicationServices {
public:
    AcDbDatabase* workingDatabase() const override { return m_pWorking; }
    void setWorkingDatabase(AcDbDatabase* pDatabase) override { m_pWorking = pDatabase; }
    const char* releaseMajorMinorString() const override { return "16.0"; }
    const char* product() const override { return "CAD Host"; }

private:
    friend void forgetWorkingDatabase(const AcDbDatabase* pDatabase);
    AcDbDatabase* m_pWorking = nullptr;
};

namespace {

HostServices& services()
{
    static HostServices s_services;
    return s_services;
}

}  // namespace

void forgetWorkingDatabase(const AcDbDatabase* pDatabase)
{
    if (services().m_pWorking == pDatabase)
        services().m_pWorking = nullptr;
}

}  // namespace host

AcDbHostApplicationServices* acdbHostApplicationServices() { return &host::services(); }
