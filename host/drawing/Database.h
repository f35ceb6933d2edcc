#pragma once

// A drawing that can be edited: the listeners on it, its modified state and its undo
// list. Errors of files are FileError, thrown; all else is a status.

#include "dxf/Drawing.h"
#include "host/drawing/Listeners.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace host {

using namespace dxf;

class Database;
class UndoList;

class Database final : public Drawing {
public:
    // The bits of DBMOD.
    enum Modified { kObjects = 1, kVariables = 4 };

    // A new, unnamed drawing.
    static std::unique_ptr<Database> createNew();
    // Throws FileError. The drawing's xrefs are loaded too, one level deep; what
    // is wrong with one of them is its status, not an error.
    static std::unique_ptr<Database> open(const std::string& sPath, bool loadXrefs = true);
    void loadXrefs() { resolveXrefs(true); }
    // Hears of every database of the process that goes, those of xrefs included.
    static inline std::function<void(Database&)> toBeDestroyed;
    // The implementation behind an API pointer; null for null.
    static Database* of(const AcDbDatabase* pDatabase);

    ~Database() override;

    // --- AcDbDatabase
    Acad::ErrorStatus addReactor(AcDbDatabaseReactor* pReactor) const override { return m_reactors.add(pReactor); }
    Acad::ErrorStatus removeReactor(AcDbDatabaseReactor* pReactor) const override
    {
        return m_reactors.remove(pReactor);
    }

    // --- The file
    // Each throws FileError; then the old file, the path and the modified state are as
    // before. After save the drawing has the path and is unmodified; a copy changes
    // nothing of the drawing.
    void save(const std::string& sPath);
    void saveCopy(const std::string& sPath) const;
    // The steps of save, for a host that takes them apart.
    using Drawing::setPath;
    void setSaved();
    // Throws FileError for a binary drawing, which is read, not written: there is no edit
    // without this.
    void requireEditable() const;
    // Replaces the contents by those of another file and marks the drawing as
    // modified; path and reactors stay, and the reactors hear of each block that comes.
    // Throws FileError, then nothing has changed.
    void dxfIn(const std::string& sPath);

    // --- Modified state: 0 exactly when the drawing is as it was saved or opened.
    int dbmod() const;

    // --- Edits, each one step for undo, heard by the reactors as the API documents. Each
    // throws FileError where the drawing is not to be edited.
    Acad::ErrorStatus changeOpenObject(AcDbStub& node, std::string sText) override;
    void tellModified(AcDbStub& node) override;
    // Keeps the variable's group codes: as many texts as it has values.
    // eKeyNotFound for a variable that the drawing lacks.
    Acad::ErrorStatus setHeaderVariable(const std::string& sName, const std::vector<std::string>& values);

    Acad::ErrorStatus addLine(double x1, double y1, double x2, double y2);
    // Erases the entity of model space that was drawn last; eInvalidInput when it is empty.
    Acad::ErrorStatus eraseLast();
    // A reference in model space, with the default values of the block's attributes.
    Acad::ErrorStatus insertBlock(const std::string& sName, double x, double y);
    // On the first reference that has the tag; eKeyNotFound without one.
    Acad::ErrorStatus setAttribute(const std::string& sTag, const std::string& sValue);
    // A block named after the file, and one reference to it. The path is kept as
    // given. eFileNotFound, eDuplicateKey; eFilerError for a file that does not load.
    Acad::ErrorStatus attachXref(const std::string& sPath);
    // Reads the xref's file anew. eKeyNotFound, eFileNotFound, eFilerError.
    Acad::ErrorStatus reloadXref(const std::string& sName);
    // Erases the xref's block and its references. eKeyNotFound.
    Acad::ErrorStatus detachXref(const std::string& sName);
    // Fields: title, subject, author, keywords, comments, lastsavedby,
    // revisionnumber, hyperlinkbase (any case); any other name is a custom
    // property's, added when the drawing has none of the name.
    Acad::ErrorStatus setSummaryField(const std::string& sField, const std::string& sValue);
    // Takes back the last edit, or does it again; false when there is none.
    bool undo();
    bool redo();
    // objectOpenedForModify and objectModified of one object, n times; the
    // drawing does not change.
    void notifyNoChange(int n);

    // --- For the rest of the drawing side
    UndoList& undoList() const { return *m_undo; }
    Listeners<AcDbDatabaseReactor>& reactors() const { return m_reactors; }
    // While reactors are told, and after a change has been told in full.
    int& telling() { return m_telling; }
    void changeIsTold();
    // The full path under which this database was attached; empty for no xref's.
    const std::string& xrefPath() const { return m_sXrefPath; }
    // Loads what a block refers to, by its path from the drawing's folder, and sets its
    // status. What an xref itself refers to is not loaded.
    void resolveXref(BlockNode& block) const;

private:
    Database(std::unique_ptr<DxfFile> file, const std::string& sPath, bool loadXrefs);
    // Without `load`, all of them stay unresolved.
    void resolveXrefs(bool load);

    std::string m_sXrefPath;
    std::unique_ptr<UndoList> m_undo;
    mutable Listeners<AcDbDatabaseReactor> m_reactors;
    int m_toldDbmod = 0;
    int m_telling = 0;
};

// A database that goes away is nobody's working database any more.
void forgetWorkingDatabase(const AcDbDatabase* pDatabase);

}  // namespace host
