#pragma once

// The listener on the host's document manager: turns its events into calls on the
// tab list, and keeps the last known modified state of every open document.

#include "mfc/afx.h"
#include "objectarx/acdocman.h"
#include "reactors/DatabaseReactor.h"

#include <map>
#include <memory>

class CDocManagerReactor : public AcApDocManagerReactor {
public:
    // Creates and registers the one instance and replays the open documents. The
    // tab window must exist.
    static void attach();
    // Replays the removal of the open documents, unregisters and deletes the
    // instance. The tab window must still exist.
    static void detach();
    // The one instance; null, after an assertion, when detached.
    static CDocManagerReactor* getReactor();
    static bool isAttached() { return m_pReactor != nullptr; }

    // Whether the drawing has unsaved changes, read from the drawing.
    static bool isDatabaseModified(AcApDocument* pDocument);

    ~CDocManagerReactor() override;

    // Walk all open documents, in opening order.
    void addDocuments();
    void removeDocuments();
    // removeDocuments, then addDocuments.
    void refreshDocuments();

    // Moves the listener when another database has taken the place of the document's, and
    // tells the tab list of it. True when that was so.
    bool followDatabase(AcApDocument* pDocument);
    // The database goes away, and its listener has nothing to hear until followDatabase.
    void forgetDatabase(const AcDbDatabase* pDatabase);

    // One listener a document; the document must not have one yet.
    void addDatabaseReactor(AcApDocument* pDocument);
    // The document must have one.
    void removeDatabaseReactor(AcApDocument* pDocument);

    // The last known state, read from the drawing at the first request.
    bool wasDatabaseModified(AcApDocument* pDocument);
    // Reads the state from the drawing, keeps it and tells the tab list.
    void updateDatabaseModifiedFlag(AcApDocument* pDocument);
    // Throws std::out_of_range when no state is known for the document.
    void removeDatabaseModifiedFlag(AcApDocument* pDocument);

    void documentCreated(AcApDocument* pDocument) override;
    void documentToBeDestroyed(AcApDocument* pDocument) override;
    void documentDestroyed(const char* fileName) override;
    void documentActivated(AcApDocument* pDocument) override;

private:
    // A document's listener and where the host has it.
    struct Listener {
        std::unique_ptr<CDatabaseReactor> pReactor;
        AcDbDatabase* pDatabase = nullptr;
        CString sFileName;  // the document's, as the tab list knows it

        void listenTo(AcDbDatabase* pNew);
    };

    // For what the host did not notify, or did before the document had it: another
    // database, name or modified state.
    void lookAgain(AcApDocument* pDocument);

    static CDocManagerReactor* m_pReactor;

    std::map<AcApDocument*, Listener> m_mapDatabaseReactors;
    std::map<AcApDocument*, bool> m_mapDatabaseModified;
};
