#pragma once

// The definition of a named block in a drawing's block table.

#include "mfc/afx.h"
#include "objectarx/dbid.h"

class AcDbDatabase;

namespace Tesk {

class CARXBlockDefinition {
public:
    // The database stays the host's.
    CARXBlockDefinition(AcDbDatabase* pDatabase, const char* sBlockName);

    // Whether the drawing has the block. False, and the output untouched, when the
    // block table cannot be opened.
    bool exists(bool& bExists) const;
    // The first of the block's references; null when it has none or they cannot
    // be read.
    AcDbObjectId firstReference() const;

private:
    AcDbDatabase* m_pDatabase;
    CString m_sBlockName;
};

}  // namespace Tesk
