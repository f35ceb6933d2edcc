#pragma once

// The tab strip as it shows in the frame: the tab control with identifier 42.

#include "mfc/afxcmn.h"
#include "mfc/afxwin.h"
#include "objectarx/acdocman.h"

#include <string>

namespace host::observation {

class Strip {
public:
    // Looks the control up in the frame.
    explicit Strip(HWND frame);

    bool exists() const { return m_window != nullptr; }
    HWND window() const { return m_window; }
    int count() const;
    // The STRIP command's lines. The MDI client is the frame's.
    std::string describe(HWND mdiClient) const;
    // What of the client area shows tabs: all but the two arrows.
    CRect view() const;
    // The middle of a tab, in the strip's client coordinates, scrolled into view.
    // Throws CommandError when there is no such tab, or it does not show.
    POINT middleOf(int tab) const;

private:
    // What the tab's data points at: it need not be open any more.
    const AcApDocument* documentAt(int tab) const;
    std::string describeTab(int tab) const;
    CRect placeOf(int tab) const;
    std::string describeShown() const;
    HWND arrows() const { return ::FindWindowExA(m_window, nullptr, UPDOWN_CLASSA, nullptr); }

    HWND m_frame;
    HWND m_window;
};

}  // namespace host::observation
