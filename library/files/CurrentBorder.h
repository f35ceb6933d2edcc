#pragma once

// The border in use and the title block that it belongs to: process-wide copies, empty
// until a search for a drawing's title block has chosen them.

#include "library/files/SettingsFile.h"

namespace Tesk {

struct CCurrentBorder {
    CBorderEntry m_border;
    CBlockGroup m_titleBlock;
};

const CCurrentBorder& getCurrentBorder();
void setCurrentBorder(const CBorderEntry& border, const CBlockGroup& titleBlock);

}  // namespace Tesk
