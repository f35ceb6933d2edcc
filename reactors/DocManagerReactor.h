#pragma once

// The listener on the host's document manager: turns its events into calls on the
// tab list, and keeps the last known modified state of every open document.

#include "objectarx/acdocman.h"
#include "reactors/DatabaseReactor.h"

#include <map>

class CDocManagerReactor : public AcApDocManagerReactor {
public:
    // Creates and registers the one instance and replays the open documents. The
    // tab window must exist.
    static void attach();
    // Replays the removal of the open documents, unregisters and deletes the
    // instance; whatever fails, nothing of it stays registered with the host. The tab
    // window must still exist.
    static void detach();
    // The one instance; null, after an assertion, when detached.
    static CDocManagerReactor* getReactor();

    // Whether the drawing has unsaved changes, read from the drawing.
    static bool isDatabaseModified(AcApDocument* pDocument);

    ~CDocManagerReactor() override;

    // Walk all open documents, in opening order.
    void addDocuments();
    void removeDocuments();
    // removeDocuments, then addDocuments.
    void refreshDocuments();

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
    void documentActivated(AcApDocument* pDocument) override;

private:
    static CDocManagerReactor* m_pReactor;

    std::map<AcApDocument*, CDatabaseReactor*> m_mapDatabaseReactors;  // owned
    std::map<AcApDocument*, bool> m_mapDatabaseModified;
};
