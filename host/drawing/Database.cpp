#include "host/drawing/Database.h"

#include "host/drawing/Assumptions.h"
#include "host/drawing/Faults.h"
#include "host/drawing/Paths.h"
#include "host/drawing/UndoList.h"

namespace host {

Database::Database(std::unique_ptr<DxfFile> file, const std::string& sPath, bool loadXrefs)
    : Drawing(std::move(file), sPath), m_undo(std::make_unique<UndoList>(*this, 0))
{
    resolveXrefs(loadXrefs);
}

Database::~Database()
{
    if (toBeDestroyed)
        toBeDestroyed(*this);
    m_reactors.notify(&AcDbDatabaseReactor::goodbye, this);
    forgetWorkingDatabase(this);
}

std::unique_ptr<Database> Database::open(const std::string& sPath, bool loadXrefs)
{
    const std::string sFull = fullPath(sPath);
    return std::unique_ptr<Database>(new Database(DxfFile::read(sFull), sFull, loadXrefs));
}

Database* Database::of(const AcDbDatabase* pDatabase)
{
    // The host makes every database there is.
    return const_cast<Database*>(static_cast<const Database*>(pDatabase));
}

void Database::save(const std::string& sPath)
{
    saveCopy(sPath);
    setPath(fullPath(sPath));
    setSaved();
}

void Database::setSaved()
{
    m_undo->setSaved();
    changeIsTold();
}

int Database::dbmod() const
{
    return m_telling != 0 && assumed(Assumption::DbmodAfterEdit) ? m_toldDbmod : m_undo->dbmod();
}

void Database::changeIsTold() { m_toldDbmod = m_undo->dbmod(); }

void Database::requireEditable() const
{
    if (file().isBinary())
        throw FileError(path(), 0, "a binary drawing is read, not written");
}

void Database::dxfIn(const std::string& sPath)
{
    requireEditable();
    if (openObjects() != 0)
        throw FileError(sPath, 0, "objects of the drawing are open");
    std::unique_ptr<DxfFile> contents = DxfFile::read(fullPath(sPath));
    if (contents->isBinary())
        throw FileError(sPath, 0, "a binary drawing, not DXF");
    replaceContents(std::move(contents));
    resolveXrefs(true);
    m_undo = std::make_unique<UndoList>(*this, kObjects);
    Notifier notifier(*this);
    for (BlockNode* pBlock : graph().blocks())
        notifier.appended(*pBlock);
}

Acad::ErrorStatus Database::changeOpenObject(AcDbStub& node, std::string sText)
{
    if (file().isBinary())
        return Acad::eNotApplicable;
    m_undo->changeOpenObject(node, std::move(sText));
    return Acad::eOk;
}

void Database::tellModified(AcDbStub& node) { Notifier(*this).modified(node); }

bool Database::undo() { return m_undo->undo(); }

bool Database::redo() { return m_undo->redo(); }

void Database::notifyNoChange(int n)
{
    Notifier notifier(*this);
    for (int i = 0; i < n; ++i) {
        notifier.openedForModify(graph().modelSpace());
        notifier.modified(graph().modelSpace());
    }
}

}  // namespace host
