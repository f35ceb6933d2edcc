// The commands that look at the windows from outside, as a person would.

#include "host/application/Application.h"
#include "host/commands/Command.h"
#include "host/drawing/Paths.h"
#include "host/observation/Dialogs.h"
#include "host/observation/PopupMenu.h"
#include "host/observation/ResourceCount.h"
#include "host/observation/Screenshot.h"
#include "host/observation/Strip.h"
#include "host/observation/Tips.h"
#include "host/observation/WindowTable.h"
#include "host/observation/Windows.h"
#include "host/ui/MainFrame.h"

#include <cctype>
#include <cstdio>

namespace host {

namespace {

using namespace observation;

constexpr DWORD kLongestHover = 2500;
constexpr DWORD kPaintTime = 150;  // until what was drawn is on the screen

void report(Application& application, const std::string& lines)
{
    application.commandLine().startLine();
    application.commandLine().print(lines);
}

bool never() { return false; }

void strip(Application& application, const Arguments&)
{
    const HWND frame = application.frame().m_hWnd;
    report(application, Strip(frame).describe(application.frame().m_hWndMDIClient));
}

void click(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    const POINT middle = tabs.middleOf(a.integer(0));
    postMouse(tabs.window(), WM_LBUTTONDOWN, MK_LBUTTON, middle, Pointer::Away);
    postMouse(tabs.window(), WM_LBUTTONUP, 0, middle, Pointer::Away);
}

// What stands behind is a line of its own, to run while something else is going on.
void runRest(Application& application, const Arguments& a, std::size_t index)
{
    if (a.size() > index && !application.runLine(a.rest(index), true))
        application.script().fail();
}

// Of the argument, which is a tab's number or x,y in the strip.
POINT pointOf(const Strip& tabs, const Arguments& a, std::size_t index)
{
    POINT point;
    return std::sscanf(a.text(index).c_str(), "%ld,%ld", &point.x, &point.y) == 2 ? point
                                                                                  : tabs.middleOf(a.integer(index));
}

// MIDDLECLICK n [m [line]]: pressed on one tab and released on another; the line runs between.
void middleClick(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    postMouse(tabs.window(), WM_MBUTTONDOWN, MK_MBUTTON, pointOf(tabs, a, 0), Pointer::Away);
    pumpUntil(0, never);
    runRest(application, a, 2);
    postMouse(tabs.window(), WM_MBUTTONUP, 0, pointOf(tabs, a, a.size() > 1 ? 1 : 0), Pointer::Away);
}

// WHEEL notches [x,y]: a message as Windows sends it, to the window with the focus; parts of a notch, too.
void wheel(Application& application, const Arguments& a)
{
    constexpr double most = 270;
    const Strip tabs(application.frame().m_hWnd);
    const double notches = a.number(0);
    if (!tabs.exists() || notches < -most || notches > most)
        throw CommandError(tabs.exists() ? "A message holds 270 notches at most." : "There is no strip.");
    CRect strip;
    ::GetClientRect(tabs.window(), strip);
    POINT place = a.size() > 1 ? pointOf(tabs, a, 1) : strip.CenterPoint();
    ::ClientToScreen(tabs.window(), &place);
    ::PostMessageA(::GetFocus() != nullptr ? ::GetFocus() : application.frame().m_hWnd, WM_MOUSEWHEEL,
                   MAKEWPARAM(0, static_cast<short>(notches * WHEEL_DELTA)), MAKELPARAM(place.x, place.y));
}

// DRAG n m [line]: pressed on one tab, moved, and released on another; the line runs before that.
void drag(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    postMouse(tabs.window(), WM_LBUTTONDOWN, MK_LBUTTON, pointOf(tabs, a, 0), Pointer::Away);
    pumpUntil(0, never);
    // From here on the pointer itself would be heard, too, wherever it goes.
    const POINT target = pointOf(tabs, a, 1);
    ::PostMessageA(tabs.window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(target.x, target.y));
    if (a.size() > 2)
        pumpUntil(0, never);
    runRest(application, a, 2);
    ::PostMessageA(tabs.window(), WM_LBUTTONUP, 0, MAKELPARAM(target.x, target.y));
}

void width(Application& application, const Arguments& a)
{
    CRect place;
    ::GetWindowRect(application.frame().m_hWnd, place);
    ::SetWindowPos(application.frame().m_hWnd, nullptr, 0, 0, a.integer(0), place.Height(),
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void hover(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    const POINT middle = tabs.middleOf(a.integer(0));
    ::SetForegroundWindow(application.frame().m_hWnd);
    Tips::hide();
    // Something else may have the one mouse of the display for a moment: up to three moves,
    // where a balloon can come at all.
    int moves = Tips::exist() ? 3 : 1;
    do {
        // From somewhere else, so that the strip sees the mouse come.
        ::SetCursorPos(0, 0);
        pumpUntil(20, never);
        postMouse(tabs.window(), WM_MOUSEMOVE, 0, middle, Pointer::There);
    } while (!pumpUntil(kLongestHover, &Tips::isShown) && --moves > 0);
    report(application, Tips::describe());
}

void picture(Application& application, const std::string& sPath)
{
    ::UpdateWindow(application.frame().m_hWnd);
    if (PopupMenu::isOpen())
        ::Sleep(kPaintTime);  // its own loop must not miss our messages
    else
        pumpUntil(kPaintTime, never);
    savePicture(application.frame().m_hWnd, fullPath(sPath));
}

// What another program would paste.
void clipboard(Application& application, const Arguments&)
{
    std::string text;
    if (::OpenClipboard(application.frame().m_hWnd)) {
        if (const HANDLE memory = ::GetClipboardData(CF_TEXT))
            text = static_cast<const char*>(::GlobalLock(memory));
        ::CloseClipboard();
    }
    report(application, "clipboard: \"" + oneLine(text) + "\"\n");
}

// MENU n [ID] [line]: the tab's menu, and what is done while it is open. MENU line: the one that the line opens.
void menu(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    const auto isNumber = [&](std::size_t index) {
        return a.size() > index && std::isdigit(static_cast<unsigned char>(a.text(index)[0])) != 0;
    };
    const UINT item = isNumber(1) ? static_cast<UINT>(a.integer(1)) : 0;
    PopupMenu popup(item, [&] { runRest(application, a, !isNumber(0) ? a.size() : item == 0 ? 1 : 2); });
    if (isNumber(0))
        popup.rightClick(tabs.window(), pointOf(tabs, a, 0));
    else
        popup.watch(tabs.window(), {}, [&] { runRest(application, a, 0); });
    report(application, popup.opened() ? popup.items() : "menu: none\n");
    if (!popup.opened() && item != 0)
        throw CommandError("There is no menu.");
}

void dialog(Application& application, const Arguments&) { report(application, describeDialog()); }

void windows(Application& application, const Arguments&)
{
    report(application, describeWindows(application.frame().m_hWnd));
}

void pressControl(Application&, const Arguments& a) { press(a.integer(0)); }

void key(Application&, const Arguments& a) { pressKey(CommandStack::plainName(a.text(0))); }

void shot(Application& application, const Arguments& a) { picture(application, a.rest(0)); }

void wait(Application&, const Arguments& a) { pumpUntil(static_cast<DWORD>(a.integer(0)), never); }

// What was printed so far is forgotten first, for it is no module's.
void resources(Application& application, const Arguments&)
{
    application.frame().clearHistory();
    application.commandLine().history().clear();
    report(application, ResourceCount::now().text() + "\n");
}

// n notifications of a modification that changes nothing, and how long they took.
void bench(Application& application, const Arguments& a)
{
    Document& document = currentDocument(application);
    LARGE_INTEGER frequency;
    LARGE_INTEGER start;
    LARGE_INTEGER end;
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&start);
    document.drawing().notifyNoChange(a.integer(0));
    ::QueryPerformanceCounter(&end);
    const auto microseconds = (end.QuadPart - start.QuadPart) * 1000000 / frequency.QuadPart;
    application.commandLine().printLine("bench: n=" + a.text(0) + " us=" + std::to_string(microseconds));
}

constexpr Command kCommands[] = {
    {"STRIP", strip, true},   {"CLICK", click},           {"HOVER", hover},
    {"MENU", menu},           {"DIALOG", dialog, true},   {"PRESS", pressControl, true},
    {"KEY", key, true},       {"SHOT", shot, true},       {"WAIT", wait, true},
    {"BENCH", bench},         {"RESOURCES", resources},   {"MIDDLECLICK", middleClick},
    {"CLIPBOARD", clipboard}, {"WINDOWS", windows, true}, {"WHEEL", wheel},
    {"DRAG", drag},           {"WIDTH", width},
};

}  // namespace

std::span<const Command> observationCommands() { return kCommands; }

}  // namespace host
