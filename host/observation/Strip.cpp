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
    return text + "shown: " + describeShown() + "\n";
}

// The first and the last tab that show from end to end.
std::string Strip::describeShown() const
{
    const CRect shown = view();
    int first = -1;
    int last = -1;
    for (int tab = 0; tab < count() && ::IsWindowVisible(m_window); ++tab) {
        const CRect place = placeOf(tab);
        if (place.IsRectEmpty() || place.left < shown.left || place.right > shown.right)
            continue;
        first = first == -1 ? tab : first;
        last = tab;
    }
    return first == -1 ? "none" : std::to_string(first) + ".." + std::to_string(last);
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

CRect Strip::placeOf(int tab) const
{
    CRect place;
    ::SendMessageA(m_window, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place));
    return place;
}

CRect Strip::view() const
{
    CRect shown;
    ::GetClientRect(m_window, shown);
    if (::IsWindowVisible(arrows())) {
        CRect covered;
        ::GetWindowRect(arrows(), covered);
        ::ScreenToClient(m_window, reinterpret_cast<POINT*>(&covered));
        shown.right = covered.left;
    }
    return shown;
}

POINT Strip::middleOf(int tab) const
{
    if (!exists() || tab < 0 || tab >= count())
        throw CommandError("There is no tab " + std::to_string(tab) + ".");
    const CRect shown = view();
    for (int step = 0; step <= count(); ++step) {
        const CRect rect = placeOf(tab);
        const CPoint middle = rect.CenterPoint();
        // A tab that is scrolled out on the left may have an empty rectangle at 0.
        if (!rect.IsRectEmpty() && shown.PtInRect(middle))
            return middle;
        // One press of an arrow.
        const int first = static_cast<short>(LOWORD(::SendMessageA(arrows(), UDM_GETPOS, 0, 0)));
        ::SendMessageA(m_window, WM_HSCROLL,
                       MAKEWPARAM(SB_THUMBPOSITION, middle.x <= shown.left ? first - 1 : first + 1), 0);
    }
    throw CommandError("Tab " + std::to_string(tab) + " does not show.");
}

}  // namespace host::observation
