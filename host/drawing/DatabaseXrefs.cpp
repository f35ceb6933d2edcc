#include "host/drawing/Database.h"

#include "dxf/ObjectGraph.h"
#include "host/drawing/EntityText.h"
#include "host/drawing/Faults.h"
#include "host/drawing/Paths.h"
#include "host/drawing/UndoList.h"

#include <shlwapi.h>

namespace host {

namespace {

// The record of the BLOCK_RECORD table that has the name, or, without a name,
// the table's end; null in files without that table.
DxfRecord* tableRecord(const DxfFile& file, std::string_view name)
{
    bool inTable = false;
    DxfRecord* p = file.section("TABLES");
    for (; p != nullptr && p->type() != "ENDSEC"; p = p->next()) {
        if (p->type() == "TABLE")
            inTable = trimmed(p->value(2)) == "BLOCK_RECORD";
        else if (inTable && (name.empty() ? p->type() == "ENDTAB"
                                          : p->type() == "BLOCK_RECORD" &&
                                                sameName(file.encoding().decode(trimmed(p->value(2))), name)))
            return p;
    }
    return nullptr;
}

// On a trial node, for what does not load is not attached.
Acad::ErrorStatus load(Database& database, const std::string& sPath, std::unique_ptr<Drawing>& xref)
{
    BlockNode trial;
    trial.xrefPath = sPath;
    database.resolveXref(trial);
    xref = std::move(trial.xref);
    return trial.status == AcDb::kXrfResolved       ? Acad::eOk
           : trial.status == AcDb::kXrfFileNotFound ? Acad::eFileNotFound
                                                    : Acad::eFilerError;
}

}  // namespace

void Database::resolveXrefs(bool load)
{
    for (BlockNode* pBlock : graph().blocks())
        if (pBlock->isXref()) {
            pBlock->status = AcDb::kXrfUnresolved;
            if (load && !pBlock->unloaded)
                resolveXref(*pBlock);
        }
}

void Database::resolveXref(BlockNode& block) const
{
    const std::string& sPath = block.xrefPath;
    const std::string sFull = fullPath(::PathIsRelativeA(sPath.c_str()) ? folderOf(path()) + sPath : sPath);
    block.status = sPath.empty() || !fileExists(sFull) ? AcDb::kXrfFileNotFound : AcDb::kXrfUnresolved;
    // A drawing cannot hold itself.
    if (block.status == AcDb::kXrfFileNotFound || sameName(sFull, path()))
        return;
    try {
        std::unique_ptr<Database> database(new Database(DxfFile::read(sFull), sFull, false));
        database->m_sXrefPath = sFull;
        block.xref = std::move(database);
        block.status = AcDb::kXrfResolved;
    } catch (const std::exception&) {  // or no memory: it stays unresolved
    }
}

Acad::ErrorStatus Database::attachXref(const std::string& sPath)
{
    const std::string sName = baseNameOf(sPath);
    if (sName.empty())
        return Acad::eInvalidInput;
    if (graph().block(sName) != nullptr)
        return Acad::eDuplicateKey;
    const std::string sRawName = file().encoding().encode(sName);
    std::unique_ptr<Drawing> xref;
    if (const Acad::ErrorStatus status = load(*this, sPath, xref); status != Acad::eOk)
        return status;
    const UndoGroup group(*m_undo);
    std::vector<DxfRecord*> records;
    unsigned long long handle = graph().newHandle();
    if (DxfRecord* pEnd = tableRecord(file(), "")) {
        EntityText entry(*this, "BLOCK_RECORD", graph().blockTable().handle);
        entry.mark("AcDbSymbolTableRecord").mark("AcDbBlockTableRecord").add(2, sRawName).add(340, "0");
        handle = entry.handle();
        records.push_back(file().create(entry.text()));
        file().linkBefore(*records.back(), *pEnd);
    }
    DxfRecord& position = endOfSection(*this, "BLOCKS");
    EntityText begin(*this, "BLOCK", handle);
    begin.mark("AcDbEntity").add(8, "0").mark("AcDbBlockBegin").add(2, sRawName).add(70, "4");
    begin.add(10, 0.0).add(20, 0.0).add(30, 0.0).add(3, sRawName).add(1, file().encoding().encode(sPath));
    EntityText end(*this, "ENDBLK", handle);
    end.mark("AcDbEntity").add(8, "0").mark("AcDbBlockEnd");
    DxfRecord* pBlock = file().create(begin.text());
    for (DxfRecord* p : {pBlock, file().create(end.text())}) {
        file().linkBefore(*p, position);
        records.push_back(p);
    }
    BlockNode& node = graph().addBlock(sName, pBlock, handle);
    node.rank = static_cast<int>(graph().blocks().size());
    node.flags = 4;
    node.xrefPath = sPath;
    node.xref = std::move(xref);
    node.status = AcDb::kXrfResolved;
    m_undo->appended({&node}, records);
    return insertBlock(sName, 0.0, 0.0);
}

Acad::ErrorStatus Database::reloadXref(const std::string& sName)
{
    BlockNode* pBlock = graph().block(sName);
    if (pBlock == nullptr || !pBlock->isXref())
        return Acad::eKeyNotFound;
    std::unique_ptr<Drawing> xref;
    if (const Acad::ErrorStatus status = load(*this, pBlock->xrefPath, xref); status != Acad::eOk)
        return status;
    pBlock->xref = std::move(xref);
    pBlock->status = AcDb::kXrfResolved;
    if (file().isBinary()) {  // nothing of the drawing changes
        Notifier(*this).openedForModify(*pBlock);
        Notifier(*this).modified(*pBlock);
    } else {
        m_undo->changeObject(*pBlock, std::string(pBlock->record->text()));
    }
    return Acad::eOk;
}

Acad::ErrorStatus Database::detachXref(const std::string& sName)
{
    BlockNode* pBlock = graph().block(sName);
    if (pBlock == nullptr || !pBlock->isXref())
        return Acad::eKeyNotFound;
    const UndoGroup group(*m_undo);
    for (InsertNode* pInsert : pBlock->references)
        if (!pInsert->erased)
            m_undo->erase({pInsert}, recordsOf(*pInsert->record));
    std::vector<DxfRecord*> records = recordsOf(*pBlock->record);
    if (DxfRecord* pEntry = tableRecord(file(), pBlock->name))
        records.push_back(pEntry);
    m_undo->erase({pBlock}, records);
    return Acad::eOk;
}

}  // namespace host

const char* acdbOriginalXrefFullPathFor(const AcDbDatabase* pXrefDatabase)
{
    const host::Database* pDatabase = host::Database::of(pXrefDatabase);
    if (host::Faults::hit("acdbOriginalXrefFullPathFor") || pDatabase == nullptr || pDatabase->xrefPath().empty())
        return nullptr;
    return pDatabase->xrefPath().c_str();
}
