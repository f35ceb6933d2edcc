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

// MIDDLECLICK n, or MIDDLECLICK n m: pressed on one tab and released on another.
void middleClick(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    postMouse(tabs.window(), WM_MBUTTONDOWN, MK_MBUTTON, tabs.middleOf(a.integer(0)), Pointer::Away);
    postMouse(tabs.window(), WM_MBUTTONUP, 0, tabs.middleOf(a.integer(a.size() > 1 ? 1 : 0)), Pointer::Away);
}

// A message as Windows sends it, to the window with the focus; parts of a notch, too.
void wheel(Application& application, const Arguments& a)
{
    constexpr double most = 270;
    const Strip tabs(application.frame().m_hWnd);
    const double notches = a.number(0);
    if (!tabs.exists() || notches < -most || notches > most)
        throw CommandError(tabs.exists() ? "A message holds 270 notches at most." : "There is no strip.");
    CRect place;
    ::GetWindowRect(tabs.window(), place);
    ::PostMessageA(::GetFocus() != nullptr ? ::GetFocus() : application.frame().m_hWnd, WM_MOUSEWHEEL,
                   MAKEWPARAM(0, static_cast<short>(notches * WHEEL_DELTA)),
                   MAKELPARAM(place.CenterPoint().x, place.CenterPoint().y));
}

// DRAG n m: pressed on one tab, moved, and released on another.
void drag(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    postMouse(tabs.window(), WM_LBUTTONDOWN, MK_LBUTTON, tabs.middleOf(a.integer(0)), Pointer::Away);
    pumpUntil(0, never);
    // From here on the pointer itself would be heard, too, wherever it goes.
    const POINT target = tabs.middleOf(a.integer(1));
    ::PostMessageA(tabs.window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(target.x, target.y));
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

// MENU n, MENU n ID, or MENU n SHOT path: a picture while the menu is open.
void menu(Application& application, const Arguments& a)
{
    const Strip tabs(application.frame().m_hWnd);
    const POINT middle = tabs.middleOf(a.integer(0));
    const bool shoot = a.size() > 1 && CommandStack::plainName(a.text(1)) == "SHOT";
    const UINT item = a.size() > 1 && !shoot ? static_cast<UINT>(a.integer(1)) : 0;
    std::string sFailure;
    PopupMenu popup(
        item, !shoot ? std::function<void()>() : [&] {
            try {
                ::Sleep(kPaintTime);  // the menu's own loop must not see our messages
                savePicture(application.frame().m_hWnd, fullPath(a.rest(2)));
            } catch (const std::exception& error) {
                sFailure = error.what();
            }
        });
    popup.rightClick(tabs.window(), middle);
    report(application, popup.opened() ? popup.items() : "menu: none\n");
    if (!popup.opened() && item != 0)
        throw CommandError("There is no menu.");
    if (!sFailure.empty())
        throw CommandError(sFailure);
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
