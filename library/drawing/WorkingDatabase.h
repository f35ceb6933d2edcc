// The switch of the host's working database, for the duration of a scope.
#pragma once

#include "objectarx/dbapserv.h"

namespace Tesk {

// Makes the database the working one (null allowed) and puts the previous one
// back when the scope is left, on every path.
class CWorkingDatabase {
public:
    explicit CWorkingDatabase(AcDbDatabase* pDatabase)
        : m_pServices(acdbHostApplicationServices()), m_pPrevious(m_pServices->workingDatabase())
    {
        m_pServices->setWorkingDatabase(pDatabase);
    }
    ~CWorkingDatabase() { m_pServices->setWorkingDatabase(m_pPrevious); }

    CWorkingDatabase(const CWorkingDatabase&) = delete;
    CWorkingDatabase& operator=(const CWorkingDatabase&) = delete;

private:
    AcDbHostApplicationServices* m_pServices;
    AcDbDatabase* m_pPrevious;
};

}
