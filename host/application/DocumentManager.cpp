#include "host/application/DocumentManager.h"

#include "dxf/Memory.h"
#include "host/application/Application.h"
#include "host/drawing/Assumptions.h"
#include "host/drawing/Faults.h"
#include "host/drawing/Paths.h"
#include "host/ui/MainFrame.h"
#include "objectarx/dbapserv.h"

#include <algorithm>
#include <utility>

namespace host {

// The documents at the time it was made; those closed since are passed over.
class DocumentIterator final : public AcApDocumentIterator {
public:
    DocumentIterator(const DocumentManager& manager, std::vector<AcApDocument*> documents)
        : m_manager(manager), m_documents(std::move(documents))
    {
        skipClosed();
    }
    bool done() const override { return m_next == m_documents.size(); }
    void step() override
    {
        if (!done())
            ++m_next;
        skipClosed();
    }
    AcApDocument* document() override { return done() ? nullptr : m_documents[m_next]; }

private:
    void skipClosed()
    {
        while (!done() && !m_manager.owns(m_documents[m_next]))
            ++m_next;
    }

    const DocumentManager& m_manager;
    std::vector<AcApDocument*> m_documents;
    std::size_t m_next = 0;
    HandedOut m_handedOut;
};

void DocumentManager::closeAll()
{
    while (!m_documents.empty())
        close(*m_documents.back());
}

AcApDocument* DocumentManager::document(const AcDbDatabase* pDatabase) const
{
    for (const auto& document : m_documents)
        if (pDatabase != nullptr && document->database() == pDatabase)
            return document.get();
    return pDatabase != nullptr && assumed(Assumption::StrangerIsCurrent) ? m_pCurrent : nullptr;
}

AcApDocumentIterator* DocumentManager::newAcApDocumentIterator()
{
    std::vector<AcApDocument*> documents;
    for (const auto& document : m_documents)
        documents.push_back(document.get());
    return new DocumentIterator(*this, std::move(documents));
}

bool DocumentManager::owns(const AcApDocument* pDocument) const
{
    return std::any_of(m_documents.begin(), m_documents.end(),
                       [pDocument](const auto& document) { return document.get() == pDocument; });
}

Document* DocumentManager::find(const std::string& sPath) const
{
    for (const auto& document : m_documents)
        if (document->isTitled() && ::lstrcmpiA(document->fileName(), fullPath(sPath).c_str()) == 0)
            return document.get();
    return nullptr;
}

Acad::ErrorStatus DocumentManager::setActivation(bool enabled)
{
    if (std::exchange(m_activationEnabled, enabled) != enabled)
        m_reactors.notify(&AcApDocManagerReactor::documentActivationModified, enabled);
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::activateDocument(AcApDocument* pDocument, bool)
{
    if (!owns(pDocument))
        return Acad::eNoDocument;
    if (!m_activationEnabled)
        return Acad::eDocumentSwitchDisabled;
    switchTo(static_cast<Document&>(*pDocument), true);
    return Acad::eOk;
}

void DocumentManager::windowActivated(Document& document)
{
    if (!m_switching && owns(&document))
        switchTo(document, false);
}

void DocumentManager::switchTo(Document& document, bool windowToo)
{
    if (m_pActive == &document) {
        setCurrent(&document);
        return;
    }
    if (m_pActive != nullptr)
        m_reactors.notify(&AcApDocManagerReactor::documentToBeDeactivated, m_pActive);
    m_reactors.notify(&AcApDocManagerReactor::documentToBeActivated, &document);
    m_pActive = &document;
    std::erase(m_activationOrder, &document);
    m_activationOrder.push_back(&document);
    if (windowToo) {
        m_switching = true;
        m_application.frame().activate(document);
        m_switching = false;
    }
    setCurrent(&document);
    m_reactors.notify(&AcApDocManagerReactor::documentActivated, &document);
}

void DocumentManager::setCurrent(Document* pDocument)
{
    if (m_pCurrent == pDocument)
        return;
    m_pCurrent = pDocument;
    acdbHostApplicationServices()->setWorkingDatabase(pDocument != nullptr ? pDocument->database() : nullptr);
    if (pDocument != nullptr)
        m_reactors.notify(&AcApDocManagerReactor::documentBecameCurrent, pDocument);
}

Document* DocumentManager::admit(std::unique_ptr<Document> document)
{
    Document* const pDocument = document.get();
    m_documents.push_back(std::move(document));
    m_switching = true;
    m_application.frame().open(*pDocument);
    m_switching = false;
    m_reactors.notify(&AcApDocManagerReactor::documentCreated, pDocument);
    return pDocument;
}

Document& DocumentManager::createNew()
{
    auto document = std::make_unique<Document>("Drawing" + std::to_string(++m_untitled) + ".dwg", false);
    m_reactors.notify(&AcApDocManagerReactor::documentCreateStarted, document.get());
    document->setDatabase(Database::createNew());
    Document* const pDocument = admit(std::move(document));
    switchTo(*pDocument, true);
    return *pDocument;
}

bool DocumentManager::open(const std::string& sPath)
{
    if (Document* const pOpen = find(sPath)) {
        activateDocument(pOpen);
        return false;
    }
    const std::string sFullPath = fullPath(sPath);
    auto document = std::make_unique<Document>(sFullPath, true);
    m_reactors.notify(&AcApDocManagerReactor::documentCreateStarted, document.get());
    try {
        document->setDatabase(Database::open(sFullPath, !assumed(Assumption::XrefsAfterOpen)));
    } catch (...) {
        m_reactors.notify(&AcApDocManagerReactor::documentCreateCanceled, document.get());
        throw;
    }
    document->refreshReadOnly();
    Document& opened = *document;
    const bool openedFirst = assumed(Assumption::OpenedBeforeCreated);
    if (openedFirst)
        notifyOpened(opened.drawing(), sFullPath);
    admit(std::move(document));
    if (assumed(Assumption::ActivatedBeforeOpened))
        switchTo(opened, true);
    if (!openedFirst)
        notifyOpened(opened.drawing(), sFullPath);
    if (assumed(Assumption::XrefsAfterOpen))
        opened.drawing().loadXrefs();
    tellIfBinary(opened);
    switchTo(opened, true);
    return true;
}

// A DXF file is imported, whatever the command.
void DocumentManager::notifyOpened(Database& drawing, std::string sPath)
{
    if (sPath.size() > 4 && ::lstrcmpiA(sPath.c_str() + sPath.size() - 4, ".dxf") == 0) {
        m_application.editor().notify(&AcEditorReactor::beginDxfIn, &drawing);
        m_application.editor().notify(&AcEditorReactor::dxfInComplete, &drawing);
    } else {
        m_application.editor().notify(&AcEditorReactor::dwgFileOpened, &drawing, sPath.data());
    }
}

void DocumentManager::replace(Document& document, const std::string& sPath)
{
    const std::string sFullPath = fullPath(sPath);
    std::unique_ptr<Database> database = Database::open(sFullPath);
    std::unique_ptr<Database> replaced = document.releaseDatabase();
    document.setDatabase(std::move(database));
    document.setFile(sFullPath);
    replaced.reset();
    acdbHostApplicationServices()->setWorkingDatabase(document.database());
    notifyOpened(document.drawing(), sFullPath);
    m_application.frame().refresh(document);
    tellIfBinary(document);
}

void DocumentManager::tellIfBinary(const Document& document)
{
    const DxfFile& file = document.drawing().file();
    if (!file.isBinary())
        return;
    const std::string sWhat =
        file.notRead().empty() ? "it is read, not written." : "its contents are not read (" + file.notRead() + ").";
    m_application.commandLine().printLine("\"" + std::string(document.fileName()) + "\" is a binary drawing: " + sWhat);
}

void DocumentManager::readAside(const std::string& sPath)
{
    const std::unique_ptr<Database> drawing = Database::open(sPath);
    notifyOpened(*drawing, fullPath(sPath));
}

Acad::ErrorStatus DocumentManager::appContextOpenDocument(const char* sPath)
{
    if (sPath == nullptr || *sPath == '\0')
        return Acad::eInvalidInput;
    if (!m_activationEnabled)
        return Acad::eDocumentSwitchDisabled;
    try {
        if (!open(sPath))
            m_application.commandLine().printLine(std::string("\"") + sPath + "\" is open already.");
        return Acad::eOk;
    } catch (const std::exception& error) {
        m_application.commandLine().printError(error);
        return fileExists(sPath) ? Acad::eFilerError : Acad::eFileNotFound;
    }
}

void DocumentManager::close(Document& document)
{
    const bool wasActive = m_pActive == &document;
    if (wasActive)
        m_reactors.notify(&AcApDocManagerReactor::documentToBeDeactivated, &document);
    m_reactors.notify(&AcApDocManagerReactor::documentToBeDestroyed, &document);

    std::erase(m_activationOrder, &document);
    std::erase_if(m_input, [&](const QueuedInput& input) { return input.pDocument == &document; });
    m_unfinished.erase(&document);
    const auto place = std::find_if(m_documents.begin(), m_documents.end(),
                                    [&](const auto& other) { return other.get() == &document; });
    const std::unique_ptr<Document> closing = std::move(*place);
    m_documents.erase(place);

    m_switching = true;
    m_application.frame().close(document);
    m_switching = false;
    if (wasActive)
        m_pActive = nullptr;
    if (m_pCurrent == &document)
        setCurrent(m_pActive);
    closing->releaseDatabase().reset();
    m_reactors.notify(&AcApDocManagerReactor::documentDestroyed, closing->fileName());
    if (wasActive && !m_activationOrder.empty())
        switchTo(*m_activationOrder.back(), true);
}

void DocumentManager::save(Document& document, const std::string& sPath, bool copy)
{
    Database& drawing = document.drawing();
    m_application.editor().notify(&AcEditorReactor::beginSave, &drawing, sPath.c_str());
    try {
        drawing.saveCopy(sPath);
    } catch (...) {
        m_application.editor().notify(&AcEditorReactor::abortSave, &drawing);
        throw;
    }
    const auto complete = [&](bool named, bool saved) {
        if (named) {
            drawing.setPath(sPath);
            document.setFile(sPath);
            m_application.frame().refresh(document);
        }
        if (saved)
            drawing.setSaved();
    };
    const bool lateName = assumed(Assumption::NameAfterSave);
    const bool lateState = assumed(Assumption::DbmodAfterSave);
    complete(!lateName && !copy, !lateState && !copy);
    m_application.editor().notify(&AcEditorReactor::saveComplete, &drawing, sPath.c_str());
    complete(lateName && !copy, lateState && !copy);
}

void DocumentManager::dxfIn(Document& document, const std::string& sPath)
{
    Database& drawing = document.drawing();
    m_application.editor().notify(&AcEditorReactor::beginDxfIn, &drawing);
    try {
        drawing.dxfIn(sPath);
    } catch (...) {
        m_application.editor().notify(&AcEditorReactor::abortDxfIn, &drawing);
        throw;
    }
    m_application.editor().notify(&AcEditorReactor::dxfInComplete, &drawing);
    m_application.frame().refresh(document);
}

Acad::ErrorStatus DocumentManager::sendStringToExecute(AcApDocument* pDocument, const char* sCommand, bool bActivate,
                                                       bool bWrapUpInactiveDoc, bool bEchoString)
{
    if (!owns(pDocument))
        return Acad::eNoDocument;
    if (sCommand == nullptr)
        return Acad::eInvalidInput;
    Document* const pTarget = static_cast<Document*>(pDocument);

    const std::string text = std::exchange(m_unfinished[pTarget], {}) + sCommand;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find_first_of("\r\n", start)) != std::string::npos; start = end + 1)
        m_input.push_back({pTarget, text.substr(start, end - start), bActivate, bWrapUpInactiveDoc, bEchoString});
    if (start < text.size())
        m_unfinished[pTarget] = text.substr(start);
    return Acad::eOk;
}

std::optional<QueuedInput> DocumentManager::nextInput()
{
    const auto next = std::find_if(m_input.begin(), m_input.end(), [this](const QueuedInput& input) {
        return input.activate || input.pDocument == m_pActive || !assumed(Assumption::StringsWait);
    });
    if (next == m_input.end())
        return std::nullopt;
    QueuedInput input = std::move(*next);
    m_input.erase(next);
    return input;
}

}  // namespace host
