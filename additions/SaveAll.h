#pragma once

// Saves several documents one after the other, by the host's own command, each when the one
// before is saved. It ends when one is still modified after that: the person has cancelled,
// or the host refused.

#include "additions/HostCommand.h"
#include "objectarx/acdocman.h"

#include <vector>

class CSaveAll {
public:
    CSaveAll() = default;
    ~CSaveAll();
    CSaveAll(const CSaveAll&) = delete;
    CSaveAll& operator=(const CSaveAll&) = delete;

    // It has changes, and can be written.
    static bool isDue(AcApDocument* pDocument);

    // Ends what it was at. One that is closed meanwhile is passed over; when it was its turn
    // the host forgets what waits behind it, too.
    void start(const std::vector<AcApDocument*>& vecDocuments);

private:
    static void run();
    void saveNext();
    void afterSave();

    static CSaveAll* s_pCurrent;
    std::vector<AcApDocument*> m_vecDue;  // the first is being saved
    CHostCommand m_command;               // stands behind each document's saving in the host's queue
};
