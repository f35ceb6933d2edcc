#pragma once

// The switch of the host's working database, for the duration of a scope.

#include "library/diagnostics/Guard.h"
#include "objectarx/dbapserv.h"

namespace Tesk {

// Makes the database the working one (null allowed) and puts the previous one
// back when the scope is left, on every path: a host that does not take it back at
// once is asked a second time, and an exception of that call ends here.
class CWorkingDatabase {
public:
    explicit CWorkingDatabase(AcDbDatabase* pDatabase)
        : m_pServices(acdbHostApplicationServices()), m_pPrevious(m_pServices->workingDatabase())
    {
        m_pServices->setWorkingDatabase(pDatabase);
    }
    ~CWorkingDatabase()
    {
        if (!restore())
            restore();
    }

    CWorkingDatabase(const CWorkingDatabase&) = delete;
    CWorkingDatabase& operator=(const CWorkingDatabase&) = delete;

private:
    bool restore() noexcept
    {
        bool bRestored = false;
        guarded("Restoring the working database", [&] {
            m_pServices->setWorkingDatabase(m_pPrevious);
            bRestored = m_pServices->workingDatabase() == m_pPrevious;
        });
        return bRestored;
    }

    AcDbHostApplicationServices* m_pServices;
    AcDbDatabase* m_pPrevious;
};

}  // namespace Tesk
