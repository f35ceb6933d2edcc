#pragma once

// The folder of the settings that a whole office shares.

#include "mfc/afx.h"

#include <vector>

namespace Tesk {

struct CDomainCandidate {
    CString m_sFolder;
    CString m_sKey;  // the registry's that names it in "Domain Settings"; empty for the others
};

// The folders that may be it, the one that counts most first. A new value that an
// administrator registered for the machine becomes the user's first.
std::vector<CDomainCandidate> getDomainSettingsCandidates();

// The first domain settings folder that exists; when none does, the last one tried.
CString getDomainSettingsFolder();

}  // namespace Tesk
