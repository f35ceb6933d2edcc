#include "host/observation/Strip.h"

#include "host/application/Application.h"
#include "host/commands/Command.h"
#include "host/observation/Windows.h"

namespace host::observation {

namespace {

constexpr int kStripId = 42;

std::string rectangle(HWND frame, HWND window)
{
    RECT rect;
    ::GetWindowRect(window, &rect);
    ::MapWindowPoints(nullptr, frame, reinterpret_cast<POINT*>(&rect), 2);
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," + std::to_string(rect.right) + "," +
           std::to_string(rect.bottom);
}

}  // namespace

Strip::Strip(HWND frame) : m_frame(frame), m_window(::GetDlgItem(frame, kStripId))
{
    if (m_window != nullptr && classOf(m_window) != WC_TABCONTROLA)
        m_window = nullptr;
}

int Strip::count() const { return static_cast<int>(::SendMessageA(m_window, TCM_GETITEMCOUNT, 0, 0)); }

std::string Strip::describe(HWND mdiClient) const
{
    if (!exists())
        return "strip: none\n";
    const LRESULT selected = ::SendMessageA(m_window, TCM_GETCURSEL, 0, 0);
    const AcApDocument* const pActive = Application::instance()->documents().active();
    int active = pActive != nullptr ? count() - 1 : -1;
    while (active >= 0 && documentAt(active) != pActive)
        --active;
    std::string text = std::string("strip: visible=") + (::IsWindowVisible(m_window) ? "1" : "0") +
                       " rect=" + rectangle(m_frame, m_window) + " client=" + rectangle(m_frame, mdiClient) +
                       " tabs=" + std::to_string(count()) + " selected=" + std::to_string(selected) +
                       " active=" + std::to_string(active) + "\n";
    for (int tab = 0; tab < count(); ++tab)
        text += describeTab(tab);
    return text;
}

const AcApDocument* Strip::documentAt(int tab) const
{
    TCITEMA item{};
    item.mask = TCIF_PARAM;
    ::SendMessageA(m_window, TCM_GETITEMA, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    return reinterpret_cast<const AcApDocument*>(item.lParam);
}

std::string Strip::describeTab(int tab) const
{
    char caption[512] = "";
    TCITEMA item{};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = caption;
    item.cchTextMax = sizeof caption;
    ::SendMessageA(m_window, TCM_GETITEMA, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    const AcApDocument* const pDocument = documentAt(tab);
    return "tab " + std::to_string(tab) + ": text=\"" + oneLine(item.pszText) +
           "\" image=" + std::to_string(item.iImage) + " document=\"" +
           (Application::instance()->documents().owns(pDocument) ? pDocument->fileName() : "?") + "\"\n";
}

POINT Strip::middleOf(int tab) const
{
    if (!exists() || tab < 0 || tab >= count())
        throw CommandError("There is no tab " + std::to_string(tab) + ".");
    CRect view;
    ::GetClientRect(m_window, view);
    const HWND arrows = ::FindWindowExA(m_window, nullptr, UPDOWN_CLASSA, nullptr);
    if (arrows != nullptr && ::IsWindowVisible(arrows)) {
        CRect covered;
        ::GetWindowRect(arrows, covered);
        ::ScreenToClient(m_window, reinterpret_cast<POINT*>(&covered));
        view.right = covered.left;
    }
    for (int step = 0; step <= count(); ++step) {
        CRect rect;
        ::SendMessageA(m_window, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&rect));
        const CPoint middle = rect.CenterPoint();
        // A tab that is scrolled out on the left may have an empty rectangle at 0.
        if (!rect.IsRectEmpty() && view.PtInRect(middle))
            return middle;
        // One press of an arrow.
        const int first = static_cast<short>(LOWORD(::SendMessageA(arrows, UDM_GETPOS, 0, 0)));
        ::SendMessageA(m_window, WM_HSCROLL,
                       MAKEWPARAM(SB_THUMBPOSITION, middle.x <= view.left ? first - 1 : first + 1), 0);
    }
    throw CommandError("Tab " + std::to_string(tab) + " does not show.");
}

}  // namespace host::observation
