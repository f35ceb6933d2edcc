#pragma once

// Services of the running host application.

#include "objectarx/dbmain.h"

class AcDbHostApplicationServices : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)

    // The database that system variables and handles refer to; may be null.
    virtual AcDbDatabase* workingDatabase() const = 0;
    virtual void setWorkingDatabase(AcDbDatabase* pDatabase) = 0;

    // The host's strings.
    virtual const char* releaseMajorMinorString() const = 0;
    virtual const char* product() const = 0;
};

ADESK_API AcDbHostApplicationServices* acdbHostApplicationServices();
