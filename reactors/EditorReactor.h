#pragma once

// The listener on the editor's events: keeps the data of every open drawing, and
// reads it anew when the drawing is opened, imported or saved.

#include "objectarx/aced.h"
#include "reactors/DatabaseData.h"

#include <map>

class AcApDocument;

class CEditorReactor : public AcEditorReactor {
public:
    // Creates and registers the one instance, and reads the open drawings.
    static void attach();
    // Forgets all drawings, unregisters and deletes the instance, whatever fails.
    static void detach();
    // The one instance; null, after an assertion, when detached.
    static CEditorReactor* getReactor();

    ~CEditorReactor() override;

    // Walk all open documents, in opening order. A drawing that cannot be read is left
    // to the first request for it.
    void addDocuments();
    void removeDocuments();

    // The drawing's data, read now unless it is at hand. Good until the drawing is
    // saved, imported into or closed. What is raised while reading goes to the caller.
    CDatabaseData& getDatabaseData(AcApDocument* pDocument);

    // Nothing is raised to the host; a drawing that cannot be read keeps the data it had.
    void dwgFileOpened(AcDbDatabase* pDwg, char* fileName) override;
    void databaseToBeDestroyed(AcDbDatabase* pDwg) override;
    void saveComplete(AcDbDatabase* pDwg, const char* pActualName) override;
    void dxfInComplete(AcDbDatabase* pDwg) override;

private:
    void refreshOfDocument(AcDbDatabase* pDwg);
    CDatabaseData& refresh(AcDbDatabase* pDwg);

    static CEditorReactor* m_pReactor;

    std::map<AcDbDatabase*, CDatabaseData> m_mapDatabaseData;
};
