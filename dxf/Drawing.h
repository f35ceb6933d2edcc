#pragma once

// A drawing that is read: its file and the objects in it, as the API shows them.
// Errors of files are FileError, thrown; all else is a status. A host that edits
// drawings derives from it.

#include "objectarx/dbmain.h"

#include "dxf/DxfFile.h"
#include "dxf/FileError.h"
#include "dxf/ObjectGraph.h"

#include <memory>
#include <string>
#include <vector>

namespace dxf {

class Drawing : public AcDbDatabase {
public:
    Drawing(std::unique_ptr<DxfFile> file, const std::string& sPath);
    // The implementation behind an API pointer; null for null.
    static Drawing* of(const AcDbDatabase* pDatabase);

    // --- AcDbDatabase; nothing happens to a drawing that is only read.
    Acad::ErrorStatus addReactor(AcDbDatabaseReactor*) const override { return Acad::eOk; }
    Acad::ErrorStatus removeReactor(AcDbDatabaseReactor*) const override { return Acad::eOk; }
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) override;

    // --- The file
    // Full path; empty for a drawing that was never saved.
    const std::string& path() const { return m_sPath; }
    DxfFile& file() const { return *m_file; }
    ObjectGraph& graph() const { return *m_graph; }

    // --- Objects open for write
    // Gives one another text; refused by a drawing that is only read.
    virtual Acad::ErrorStatus changeOpenObject(AcDbStub&, std::string) { return Acad::eNotOpenForWrite; }
    // One that was changed is closed.
    virtual void tellModified(AcDbStub&) {}

    // --- Counts for tests
    // Objects open now in this drawing.
    int openObjects() const { return m_openObjects; }
    void countOpen(int change) { m_openObjects += change; }
    // API calls that broke the open and close rules (a value read from a closed
    // object, an object left open when its drawing went away). All drawings.
    static int misuses() { return s_misuses; }
    static void countMisuse() { ++s_misuses; }

protected:
    void setPath(const std::string& sPath) { m_sPath = sPath; }
    // Other contents; the old objects are gone.
    void replaceContents(std::unique_ptr<DxfFile> file);

private:
    static inline int s_misuses = 0;

    std::string m_sPath;
    std::unique_ptr<DxfFile> m_file;
    std::unique_ptr<ObjectGraph> m_graph;
    int m_openObjects = 0;
};

}  // namespace dxf
