// The commands that edit the current drawing.

#include "host/application/Application.h"
#include "host/commands/Command.h"
#include "host/drawing/Paths.h"
#include "host/ui/MainFrame.h"

namespace host {

namespace {

Database& drawing(Application& application) { return currentDocument(application).drawing(); }

void check(Acad::ErrorStatus status, const std::string& sWhat)
{
    switch (status) {
    case Acad::eOk:
        return;
    case Acad::eKeyNotFound:
        throw CommandError(sWhat + " is not in the drawing.");
    case Acad::eDuplicateKey:
        throw CommandError(sWhat + " is in the drawing already.");
    case Acad::eFileNotFound:
        throw CommandError(sWhat + " is not there.");
    case Acad::eFilerError:
        throw CommandError(sWhat + " cannot be read.");
    default:
        throw CommandError(sWhat + ": refused (status " + std::to_string(status) + ").");
    }
}

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

void line(Application& application, const Arguments& a)
{
    check(drawing(application).addLine(a.number(0), a.number(1), a.number(2), a.number(3)), "The line");
}

void erase(Application& application, const Arguments& a)
{
    if (CommandStack::plainName(a.text(0)) != "L")
        throw CommandError("Only the last object (L) can be erased.");
    if (drawing(application).eraseLast() != Acad::eOk)
        throw CommandError("There is nothing to erase.");
}

void undo(Application& application, const Arguments&)
{
    if (!drawing(application).undo())
        application.commandLine().printLine("Everything has been undone.");
}

void redo(Application& application, const Arguments&)
{
    if (!drawing(application).redo())
        application.commandLine().printLine("There is nothing to redo.");
}

void insert(Application& application, const Arguments& a)
{
    check(drawing(application).insertBlock(a.text(0), a.number(1), a.number(2)), "The block " + quoted(a.text(0)));
}

void editAttribute(Application& application, const Arguments& a)
{
    const std::string sValue = a.size() > 1 ? a.rest(1) : std::string();
    check(drawing(application).setAttribute(a.text(0), sValue), "The attribute " + quoted(a.text(0)));
}

void attachXref(Application& application, const Arguments& a)
{
    if (a.size() == 0 && !application.isScripted()) {
        for (const std::string& sChosen : application.frame().askForFiles())
            application.submit("_XATTACH \"" + sChosen + "\"");
        return;
    }
    check(drawing(application).attachXref(a.rest(0)), "The reference " + quoted(a.rest(0)));
}

void reloadXref(Application& application, const Arguments& a)
{
    check(drawing(application).reloadXref(a.rest(0)), "The reference " + quoted(a.rest(0)));
}

void detachXref(Application& application, const Arguments& a)
{
    check(drawing(application).detachXref(a.rest(0)), "The reference " + quoted(a.rest(0)));
}

void setProperty(Application& application, const Arguments& a)
{
    const std::string sValue = a.size() > 1 ? a.rest(1) : std::string();
    check(drawing(application).setSummaryField(a.text(0), sValue), "The property " + quoted(a.text(0)));
}

// Each command is one undo step, and the window shows what it did.
template <void (*Edit)(Application&, const Arguments&)>
void edit(Application& application, const Arguments& arguments)
{
    Edit(application, arguments);
    application.frame().refresh(currentDocument(application));
}

constexpr Command kCommands[] = {
    {"LINE", edit<line>},
    {"ERASE", edit<erase>},
    {"UNDO", edit<undo>},
    {"U", edit<undo>},
    {"REDO", edit<redo>},
    {"INSERT", edit<insert>},
    {"ATTEDIT", edit<editAttribute>},
    {"XATTACH", edit<attachXref>},
    {"XRELOAD", edit<reloadXref>},
    {"XDETACH", edit<detachXref>},
    {"PROPS", edit<setProperty>},
};

}  // namespace

std::span<const Command> drawingCommands() { return kCommands; }

}  // namespace host
