#pragma once

// Which of the strip's drawings share a name, for telling them apart. Each call takes
// about as long whether few or many drawings are open.

#include "mfc/afx.h"

#include <map>
#include <set>
#include <string>
#include <vector>

class AcApDocument;

class CSameNames {
public:
    // The document has this name from now on, case not counting. Gives the other
    // documents that came to share their name by that, or ceased to.
    std::vector<AcApDocument*> rename(AcApDocument* pDocument, const CString& sName);
    // The document is no longer one of them. Gives what rename gives.
    std::vector<AcApDocument*> remove(AcApDocument* pDocument);
    // Another document has the same name.
    bool isShared(AcApDocument* pDocument) const;

private:
    std::map<AcApDocument*, std::string> m_mapNames;  // in one case
    std::map<std::string, std::set<AcApDocument*>> m_mapDocuments;
};
