#include "library/files/CurrentBorder.h"

namespace Tesk {

namespace {

CCurrentBorder g_current;

}  // namespace

const CCurrentBorder& getCurrentBorder() { return g_current; }

void setCurrentBorder(const CBorderEntry& border, const CBlockGroup& titleBlock) { g_current = {border, titleBlock}; }

}  // namespace Tesk
