// The commands that open, save and close drawings.

#include "host/application/Application.h"
#include "host/commands/Command.h"
#include "host/drawing/Paths.h"
#include "host/ui/MainFrame.h"

namespace host {

Document& currentDocument(Application& application)
{
    if (application.documents().current() == nullptr)
        throw CommandError("There is no drawing.");
    return *application.documents().current();
}

namespace {

void requireActivation(Application& application)
{
    if (!application.documents().isDocumentActivationEnabled())
        throw CommandError("Switching between drawings is disabled.");
}

// A script names its files itself.
void requirePerson(Application& application)
{
    if (application.isScripted())
        throw CommandError("The command needs a path.");
}

// In single-drawing mode another drawing takes the place of the one there is.
bool isSingle(Application& application)
{
    return application.documents().count() != 0 && application.variables().get("SDI")->numbers[0] != 0;
}

void newDrawing(Application& application, const Arguments&)
{
    requireActivation(application);
    if (isSingle(application))
        throw CommandError("One drawing is open in single-drawing mode (SDI).");
    application.documents().createNew();
}

void open(Application& application, const Arguments& arguments)
{
    requireActivation(application);
    if (arguments.size() == 0) {
        requirePerson(application);
        for (const std::string& sChosen : application.frame().askForFiles())
            application.submit("_OPEN \"" + sChosen + "\"");
        return;
    }
    const std::string sPath = fullPath(arguments.rest(0));
    if (isSingle(application)) {
        if (application.mayLose(currentDocument(application)))
            application.documents().replace(currentDocument(application), sPath);
    } else if (!application.documents().open(sPath))
        application.commandLine().printLine("\"" + sPath + "\" is open already.");
}

void close(Application& application, const Arguments&) { application.closeDocument(currentDocument(application)); }

void saveAs(Application& application, const Arguments& arguments)
{
    Document& document = currentDocument(application);
    if (arguments.size() == 0)
        requirePerson(application);
    const std::string sPath =
        arguments.size() != 0 ? fullPath(arguments.rest(0)) : application.frame().askForTarget(document.fileName());
    if (sPath.empty())
        return;
    const Document* const pOther = application.documents().find(sPath);
    if (pOther != nullptr && pOther != &document)
        throw CommandError("\"" + sPath + "\" is open; the drawing is not saved.");
    if (isWriteProtected(sPath))
        throw CommandError("\"" + sPath + "\" is read-only; the drawing is not saved.");
    application.documents().save(document, sPath);
}

void saveCopy(Application& application, const Arguments& arguments)
{
    application.documents().save(currentDocument(application), fullPath(arguments.rest(0)), true);
}

void readAside(Application& application, const Arguments& arguments)
{
    application.documents().readAside(arguments.rest(0));
}

void quickSave(Application& application, const Arguments&)
{
    Document& document = currentDocument(application);
    if (!document.isTitled()) {
        if (application.isScripted())
            throw CommandError("\"" + document.title() + "\" has no file yet: use SAVEAS.");
        saveAs(application, {});
        return;
    }
    document.refreshReadOnly();
    if (document.isReadOnly())
        throw CommandError("\"" + std::string(document.fileName()) + "\" is read-only: use SAVEAS.");
    application.documents().save(document, document.fileName());
}

void dxfIn(Application& application, const Arguments& arguments)
{
    Document& document = currentDocument(application);
    application.documents().dxfIn(document, fullPath(arguments.rest(0)));
}

void quit(Application& application, const Arguments&) { application.quit(); }

constexpr Command kCommands[] = {
    {"NEW", newDrawing},    {"OPEN", open},         {"CLOSE", close}, {"QSAVE", quickSave}, {"SAVEAS", saveAs},
    {"SAVECOPY", saveCopy}, {"READDWG", readAside}, {"DXFIN", dxfIn}, {"QUIT", quit},
};

}  // namespace

std::span<const Command> fileCommands() { return kCommands; }

}  // namespace host
