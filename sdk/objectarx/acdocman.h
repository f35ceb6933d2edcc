#pragma once

// Documents: one for every open drawing, their manager, and its listener.

#include "objectarx/acadstrc.h"
#include "objectarx/dbmain.h"
#include "objectarx/rxobject.h"

struct AcAp {
    enum DocLockMode { kNone = 0x00, kAutoWrite = 0x01, kNotLocked = 0x02, kWrite = 0x04, kProtectedAutoWrite = 0x14 };
};

class AcApDocument : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocument)

    // Full path; the host's string, good until the document is renamed or closed.
    virtual const char* fileName() const = 0;
    virtual AcDbDatabase* database() const = 0;
    virtual bool isReadOnly() const = 0;
};

class AcApDocumentIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocumentIterator)

    virtual bool done() const = 0;
    virtual void step() = 0;
    virtual AcApDocument* document() = 0;
};

// Hears of documents coming, going and being activated, on the user-interface thread.
class AcApDocManagerReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor)

    virtual void documentCreateStarted(AcApDocument*) {}
    virtual void documentCreated(AcApDocument*) {}
    virtual void documentToBeDestroyed(AcApDocument*) {}
    virtual void documentDestroyed(const char* /*fileName*/) {}
    virtual void documentCreateCanceled(AcApDocument*) {}
    virtual void documentLockModeWillChange(AcApDocument*, AcAp::DocLockMode /*current*/, AcAp::DocLockMode /*coming*/,
                                            AcAp::DocLockMode /*currentMax*/, const char* /*globalCommand*/)
    {
    }
    virtual void documentLockModeChangeVetoed(AcApDocument*, const char* /*globalCommand*/) {}
    virtual void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode /*previous*/, AcAp::DocLockMode /*current*/,
                                         AcAp::DocLockMode /*currentMax*/, const char* /*globalCommand*/)
    {
    }
    virtual void documentBecameCurrent(AcApDocument*) {}
    virtual void documentToBeActivated(AcApDocument*) {}
    virtual void documentToBeDeactivated(AcApDocument*) {}
    virtual void documentActivationModified(bool /*bActivation*/) {}
    virtual void documentActivated(AcApDocument*) {}
};

class AcApDocManager : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcApDocManager)

    // The document whose context commands run in; null with no document.
    virtual AcApDocument* curDocument() const = 0;
    // The document of the active drawing window; null with no window.
    virtual AcApDocument* mdiActiveDocument() const = 0;
    // The document that owns the database; null for a database of its own.
    virtual AcApDocument* document(const AcDbDatabase* pDatabase) const = 0;
    // In opening order; the iterator is the caller's to delete.
    virtual AcApDocumentIterator* newAcApDocumentIterator() = 0;

    // The reactor stays the caller's.
    virtual void addReactor(AcApDocManagerReactor* pReactor) = 0;
    virtual void removeReactor(AcApDocManagerReactor* pReactor) = 0;

    // eDocumentSwitchDisabled while activation is disabled.
    virtual Acad::ErrorStatus activateDocument(AcApDocument* pDocument, bool bPassScript = false) = 0;
    virtual bool isDocumentActivationEnabled() = 0;
    virtual Acad::ErrorStatus enableDocumentActivation() = 0;
    virtual Acad::ErrorStatus disableDocumentActivation() = 0;

    // Queues input for the document's command line; it runs when the host is idle.
    virtual Acad::ErrorStatus sendStringToExecute(AcApDocument* pDocument, const char* sCommand, bool bActivate = true,
                                                  bool bWrapUpInactiveDoc = false, bool bEchoString = true) = 0;

    // Opens a drawing as a document of its own and activates it.
    virtual Acad::ErrorStatus appContextOpenDocument(const char* sPath) = 0;
};

ADESK_API AcApDocManager* acDocManagerPtr();

#define acDocManager acDocManagerPtr()
