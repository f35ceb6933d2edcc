#pragma once

// Watches from a thread of its own for assertion boxes, keeps their texts and
// answers them, as a user would.

#include <windows.h>

#include <string>
#include <vector>

class CBoxCloser {
public:
    // With a window and a message, the message is posted there before a box is
    // closed: what it does runs inside the box's own message loop.
    explicit CBoxCloser(HWND hWndNudge = nullptr, UINT uMessage = 0) : m_hWndNudge(hWndNudge), m_uMessage(uMessage)
    {
        m_hStop = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
        m_hThread = ::CreateThread(nullptr, 0, run, this, 0, nullptr);
    }
    ~CBoxCloser()
    {
        stop();
        ::CloseHandle(m_hStop);
    }
    CBoxCloser(const CBoxCloser&) = delete;
    CBoxCloser& operator=(const CBoxCloser&) = delete;

    // Ends the watch; the texts of the boxes that were up, in order.
    const std::vector<std::string>& stop()
    {
        if (m_hThread) {
            ::SetEvent(m_hStop);
            ::WaitForSingleObject(m_hThread, INFINITE);
            ::CloseHandle(m_hThread);
            m_hThread = nullptr;
        }
        return m_texts;
    }

    const std::string& title() const { return m_sTitle; }

private:
    static DWORD WINAPI run(void* pThis)
    {
        auto& closer = *static_cast<CBoxCloser*>(pThis);
        while (::WaitForSingleObject(closer.m_hStop, 10) == WAIT_TIMEOUT)
            ::EnumWindows(visit, reinterpret_cast<LPARAM>(pThis));
        return 0;
    }

    static BOOL CALLBACK visit(HWND hWnd, LPARAM lThis)
    {
        auto& closer = *reinterpret_cast<CBoxCloser*>(lThis);
        DWORD dwProcess = 0;
        ::GetWindowThreadProcessId(hWnd, &dwProcess);
        char sTitle[256] = "";
        ::GetWindowTextA(hWnd, sTitle, sizeof sTitle);
        if (dwProcess == ::GetCurrentProcessId() && ::IsWindowVisible(hWnd) &&
            std::string(sTitle).starts_with("Assertion Failure: "))
            closer.answer(hWnd, sTitle);
        return TRUE;
    }

    void answer(HWND hWnd, const char* sTitle)
    {
        m_sTitle = sTitle;
        std::string sText(16384, 0);
        ::SendMessageA(::GetDlgItem(hWnd, 0xFFFF), WM_GETTEXT, sText.size(), reinterpret_cast<LPARAM>(sText.data()));
        m_texts.push_back(sText.c_str());
        if (m_hWndNudge) {
            ::PostMessageA(m_hWndNudge, m_uMessage, 0, 0);
            ::Sleep(300);  // time for a second box, if there should be one
        }
        ::PostMessageA(hWnd, WM_COMMAND, IDOK, 0);
        for (int i = 0; i < 500 && ::IsWindow(hWnd); ++i)
            ::Sleep(10);
    }

    HWND m_hWndNudge;
    UINT m_uMessage;
    HANDLE m_hStop;
    HANDLE m_hThread;
    std::string m_sTitle;
    std::vector<std::string> m_texts;
};
