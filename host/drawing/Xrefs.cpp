#include "host/drawing/Xrefs.h"

#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"
#include "host/drawing/Paths.h"

namespace host {

namespace {

bool isAbsolute(const std::string& sPath)
{
    return (sPath.size() > 1 && sPath[1] == ':') || sPath.starts_with('\\') || sPath.starts_with('/');
}

}  // namespace

std::string fullXrefPath(const Database& host, const std::string& sPath)
{
    return fullPath(isAbsolute(sPath) ? sPath : folderOf(host.path()) + sPath);
}

void resolveXrefs(Database& database, bool load)
{
    for (BlockNode* pBlock : database.graph().blocks()) {
        if (!pBlock->isXref())
            continue;
        pBlock->status = AcDb::kXrfUnresolved;
        if (load && !pBlock->unloaded)
            resolveXref(database, *pBlock);
    }
}

void resolveXref(Database& database, BlockNode& block)
{
    const std::string sFull = fullXrefPath(database, block.xrefPath);
    if (block.xrefPath.empty() || !fileExists(sFull)) {
        block.status = AcDb::kXrfFileNotFound;
        return;
    }
    // A drawing cannot hold itself.
    if (sameName(sFull, database.path()))
        return;
    std::string sReason;
    block.xref = Database::openXref(sFull, sReason);
    if (block.xref != nullptr)
        block.status = AcDb::kXrfResolved;
}

}  // namespace host

const char* acdbOriginalXrefFullPathFor(const AcDbDatabase* pXrefDatabase)
{
    const host::Database* pDatabase = host::Database::of(pXrefDatabase);
    if (host::Faults::hit("acdbOriginalXrefFullPathFor") || pDatabase == nullptr || pDatabase->xrefPath().empty())
        return nullptr;
    return pDatabase->xrefPath().c_str();
}
