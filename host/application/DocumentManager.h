#pragma once

// The open documents: who is there, which one is active, what waits to be typed
// into each. A document's notifications come in this order:
//   opening     documentCreateStarted, documentCreated (or documentCreateCanceled),
//               then the editor's dwgFileOpened (or beginDxfIn, dxfInComplete), then
//               the activation
//   activation  documentToBeDeactivated (the old), documentToBeActivated,
//               documentBecameCurrent, documentActivated
//   closing     documentToBeDeactivated (when it is active), documentToBeDestroyed,
//               the editor's databaseToBeDestroyed, documentDestroyed, then the
//               activation of the document that was active before

#include "host/application/Document.h"
#include "host/drawing/Listeners.h"

#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace host {

class Application;

// Input for a document's command line.
struct QueuedInput {
    Document* pDocument;
    std::string line;
    bool activate;
    bool wrapUp;  // of an inactive document
    bool echo;
};

class DocumentManager final : public AcApDocManager {
public:
    explicit DocumentManager(Application& application) : m_application(application) {}

    // --- AcApDocManager
    AcApDocument* curDocument() const override { return m_pCurrent; }
    AcApDocument* mdiActiveDocument() const override { return m_pActive; }
    AcApDocument* document(const AcDbDatabase* pDatabase) const override;
    AcApDocumentIterator* newAcApDocumentIterator() override;
    void addReactor(AcApDocManagerReactor* pReactor) override { m_reactors.add(pReactor); }
    void removeReactor(AcApDocManagerReactor* pReactor) override { m_reactors.remove(pReactor); }
    Acad::ErrorStatus activateDocument(AcApDocument* pDocument, bool bPassScript = false) override;
    bool isDocumentActivationEnabled() override { return m_activationEnabled; }
    Acad::ErrorStatus enableDocumentActivation() override { return setActivation(true); }
    Acad::ErrorStatus disableDocumentActivation() override { return setActivation(false); }
    Acad::ErrorStatus sendStringToExecute(AcApDocument* pDocument, const char* sCommand, bool bActivate = true,
                                          bool bWrapUpInactiveDoc = false, bool bEchoString = true) override;
    Acad::ErrorStatus appContextOpenDocument(const char* sPath) override;

    // --- For the host
    std::size_t count() const { return m_documents.size(); }
    Document& at(std::size_t index) const { return *m_documents[index]; }
    Document* current() const { return m_pCurrent; }
    Document* active() const { return m_pActive; }
    Document* find(const std::string& sPath) const;
    // Any pointer may be asked about.
    bool owns(const AcApDocument* pDocument) const;
    std::size_t reactorCount() const { return m_reactors.size(); }

    // A new, untitled drawing, activated.
    Document& createNew();
    // Opens and activates. Throws FileError, then nothing has changed; a drawing
    // that is open already is activated and the result is false.
    bool open(const std::string& sPath);
    // Closes without asking.
    void close(Document& document);
    void closeAll();
    // Writes the drawing, under a new name or its own. A copy, as an automatic save makes
    // one, leaves its name and its modified state. Throws FileError.
    void save(Document& document, const std::string& sPath, bool copy = false);
    // Puts another drawing into the document, as opening in single-drawing mode does.
    // Throws FileError, then nothing has changed.
    void replace(Document& document, const std::string& sPath);
    // Reads a drawing that is no document's, for other purposes. Throws FileError.
    void readAside(const std::string& sPath);
    // Replaces the drawing's contents. Throws FileError.
    void dxfIn(Document& document, const std::string& sPath);

    // A person activated the document's window.
    void windowActivated(Document& document);
    // The document that commands run in: not necessarily the active one.
    void setCurrent(Document* pDocument);

    // The oldest line of input; none when all is done.
    std::optional<QueuedInput> nextInput();

private:
    Acad::ErrorStatus setActivation(bool enabled);
    void switchTo(Document& document, bool windowToo);
    Document* admit(std::unique_ptr<Document> document);
    void notifyOpened(Database& drawing, std::string sPath);
    void tellIfBinary(const Document& document);

    Application& m_application;
    Listeners<AcApDocManagerReactor> m_reactors;
    std::vector<std::unique_ptr<Document>> m_documents;
    std::vector<Document*> m_activationOrder;  // the last one activated stands last
    std::deque<QueuedInput> m_input;
    std::map<Document*, std::string> m_unfinished;  // typed, but without a line end yet
    Document* m_pCurrent = nullptr;
    Document* m_pActive = nullptr;
    bool m_activationEnabled = true;
    bool m_switching = false;
    int m_untitled = 0;
};

}  // namespace host
