#pragma once

// The definition of a named block in a drawing's block table. The database stays the host's.

#include "objectarx/dbid.h"

class AcDbDatabase;

namespace Tesk {

// Whether the drawing has the block. The output is untouched when the block table cannot be
// opened.
void hasBlock(AcDbDatabase* pDatabase, const char* sBlockName, bool& bHas);

// The first of the block's references; null when it has none or they cannot be read.
AcDbObjectId firstBlockReference(AcDbDatabase* pDatabase, const char* sBlockName);

}  // namespace Tesk
