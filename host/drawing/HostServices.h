#pragma once

// The host application's services: above all the working database.

#include "objectarx/dbapserv.h"

namespace host {

class HostServices final : public AcDbHostApplicationServices {
public:
    AcDbDatabase* workingDatabase() const override;
    void setWorkingDatabase(AcDbDatabase* pDatabase) override;
    const char* releaseMajorMinorString() const override { return "16.0"; }
    const char* product() const override { return "CAD Host"; }

private:
    friend void forgetWorkingDatabase(const AcDbDatabase* pDatabase);
    AcDbDatabase* m_pWorking = nullptr;
};

// A database that goes away is nobody's working database any more.
void forgetWorkingDatabase(const AcDbDatabase* pDatabase);

}  // namespace host
