#pragma once

// Closes several documents one after the other, by the host's own command, each when the
// one before has gone. It listens to the host only while it is at work, and ends as soon
// as anything goes another way: a document is kept when the person is asked, the host
// takes no command, or another one is closed meanwhile.

#include "objectarx/acdocman.h"
#include "objectarx/aced.h"

#include <vector>

class CClosing {
public:
    CClosing() = default;
    ~CClosing() { stop(); }
    CClosing(const CClosing&) = delete;
    CClosing& operator=(const CClosing&) = delete;

    // Ends what it was at. With bUnchanged a document that has unsaved changes when its
    // turn comes is passed over.
    void start(const std::vector<AcApDocument*>& vecDocuments, bool bUnchanged);

private:
    class CDocumentListener : public AcApDocManagerReactor {
    public:
        explicit CDocumentListener(CClosing& closing) : m_closing(closing) {}
        void documentToBeDestroyed(AcApDocument* pDocument) override { m_closing.announced(pDocument); }
        void documentDestroyed(const char* fileName) override;

    private:
        CClosing& m_closing;
    };
    class CEditorListener : public AcEditorReactor {
    public:
        explicit CEditorListener(CClosing& closing) : m_closing(closing) {}
        void docCloseAborted(AcDbDatabase*) override { m_closing.stop(); }

    private:
        CClosing& m_closing;
    };

    void closeNext();
    void announced(AcApDocument* pDocument);
    void stop();

    CDocumentListener m_documents{*this};
    CEditorListener m_editor{*this};
    std::vector<AcApDocument*> m_vecDue;  // of them none is announced as going
    AcApDocument* m_pAsked = nullptr;     // to close; null between two
    bool m_bUnchanged = false;
    bool m_bAtWork = false;
};
