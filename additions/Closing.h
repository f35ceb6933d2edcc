#pragma once

// Closes several documents one after the other, by the host's own command, each when the
// one before has gone. It listens to the host only while it is at work, and ends as soon
// as anything goes another way: a document is kept when the person is asked, the host
// takes no command, or another one is closed meanwhile.

#include "objectarx/acdocman.h"
#include "objectarx/aced.h"

#include <vector>

class CClosing : private AcApDocManagerReactor, private AcEditorReactor {
public:
    CClosing() = default;
    ~CClosing() override { stop(); }
    CClosing(const CClosing&) = delete;
    CClosing& operator=(const CClosing&) = delete;

    // Ends what it was at. With bUnchanged a document that has unsaved changes when its
    // turn comes is passed over.
    void start(const std::vector<AcApDocument*>& vecDocuments, bool bUnchanged);

private:
    void documentToBeDestroyed(AcApDocument* pDocument) override;
    void documentDestroyed(const char* fileName) override;
    void docCloseAborted(AcDbDatabase*) override { stop(); }

    void closeNext();
    void stop();

    std::vector<AcApDocument*> m_vecDue;  // of them none is announced as going
    AcApDocument* m_pAsked = nullptr;     // to close; null between two
    bool m_bUnchanged = false;
    bool m_bAtWork = false;
};
