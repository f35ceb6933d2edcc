#pragma once

// Saves several documents one after the other, by the host's own command, each when the one
// before is saved. It ends when one is still modified after that: the person has cancelled,
// or the host refused.

#include "additions/HostCommand.h"
#include "objectarx/acdocman.h"

#include <vector>

class CSaveAll {
public:
    // It has changes, and can be written.
    static bool isDue(AcApDocument* pDocument);

    // Ends what it was at. One that is closed meanwhile is passed over; when it was its turn
    // the host forgets what waits behind it, too.
    void start(const std::vector<AcApDocument*>& vecDocuments);
    // Behind each document's saving in the host's queue.
    void runCommand();

private:
    void saveNext();

    std::vector<AcApDocument*> m_vecDue;  // the first is being saved
    CHostCommand<CSaveAll> m_command{*this};
};
