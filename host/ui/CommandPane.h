#pragma once

// The command line at the frame's lower edge: the history, and below it the line
// that is being typed.

#include "mfc/afxwin.h"

#include <functional>
#include <string>
#include <string_view>

namespace host {

class CommandPane : public CWnd {
public:
    // Takes its band in the frame's layout pass.
    bool create(CWnd& frame, std::function<void(const std::string&)> onLine);
    // Shown a moment later, together with what follows until then.
    void show(std::string_view text);
    // Empties the history.
    void clear();
    // What is typed elsewhere goes on here.
    void type(std::string_view text);

    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    LRESULT OnSizeParent(WPARAM wParam, LPARAM lParam);
    LRESULT OnTimer(WPARAM wParam, LPARAM lParam);
    void OnSize(UINT type, int width, int height);
    LRESULT OnSetFocus(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    void append(const std::string& text);

    HWND m_history = nullptr;  // both are this window's children and go with it
    HWND m_input = nullptr;
    std::string m_pending;  // to be shown when the timer runs out
    std::function<void(const std::string&)> m_onLine;
};

}  // namespace host
