#include "host/drawing/Xrefs.h"

#include "host/drawing/Database.h"
#include "host/drawing/Faults.h"

#include <windows.h>

namespace host {

namespace {

bool isAbsolute(const std::string& sPath)
{
    return (sPath.size() > 1 && sPath[1] == ':') || sPath.starts_with('\\') || sPath.starts_with('/');
}

std::string fullPath(const std::string& sPath)
{
    char full[MAX_PATH] = "";
    const DWORD length = GetFullPathNameA(sPath.c_str(), MAX_PATH, full, nullptr);
    return length == 0 || length >= MAX_PATH ? sPath : std::string(full, length);
}

}  // namespace

std::string fullXrefPath(const Database& host, const std::string& sPath)
{
    const std::size_t slash = host.path().find_last_of("\\/");
    if (isAbsolute(sPath) || slash == std::string::npos)
        return fullPath(sPath);
    return fullPath(host.path().substr(0, slash + 1) + sPath);
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
    const DWORD attributes = GetFileAttributesA(sFull.c_str());
    if (block.xrefPath.empty() || attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY)) {
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
