#pragma once

// The dictionaries through which modules find the host's services.

#include "objectarx/rxdict.h"

#include <string>
#include <utility>
#include <vector>

namespace host {

class Dictionary final : public AcRxDictionary {
public:
    AcRxObject* at(const char* sName) const override;
    void setAt(const std::string& sName, AcRxObject* pObject) { m_entries.emplace_back(sName, pObject); }

private:
    std::vector<std::pair<std::string, AcRxObject*>> m_entries;
};

}  // namespace host
