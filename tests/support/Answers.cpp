#include "tests/support/Answers.h"

#include <cstring>
#include <utility>

namespace {

std::string textOf(HWND window)
{
    char text[16384] = "";
    ::GetWindowTextA(window, text, sizeof text);
    return text;
}

std::string between(const std::string& text, const std::string& from, const std::string& to)
{
    const auto begin = text.find(from);
    const auto end = begin == std::string::npos ? begin : text.find(to, begin + from.size());
    return end == std::string::npos ? "" : text.substr(begin + from.size(), end - begin - from.size());
}

}  // namespace

Answers* Answers::s_pCurrent = nullptr;

Answers::Answers(Handler onOptions, std::function<void()> inFirstBox)
    : m_onOptions(std::move(onOptions)),
      m_inFirstBox(std::move(inFirstBox)),
      m_timer(::SetTimer(nullptr, 0, 20, &onTimer))
{
    s_pCurrent = this;
}

Answers::~Answers()
{
    ::KillTimer(nullptr, m_timer);
    s_pCurrent = nullptr;
}

std::string Answers::assertions() const
{
    std::string found;
    for (const Box& box : m_boxes)
        if (box.title.starts_with("Assertion Failure"))
            found += between(box.text, "File : <", ">") + ": " + between(box.text, "Assertion : <", ">\nFile") + "\n";
    return found;
}

bool Answers::isChecked(HWND dialog, int id) { return ::IsDlgButtonChecked(dialog, id) == BST_CHECKED; }
void Answers::press(HWND dialog, int id)
{
    ::SendMessageA(::GetDlgItem(dialog, id), BM_CLICK, 0, 0);
    ::PostMessageA(dialog, WM_NULL, 0, 0);
}

void CALLBACK Answers::onTimer(HWND, UINT, UINT_PTR, DWORD)
{
    if (s_pCurrent != nullptr)
        ::EnumThreadWindows(::GetCurrentThreadId(), &look, reinterpret_cast<LPARAM>(s_pCurrent));
}

BOOL CALLBACK Answers::look(HWND window, LPARAM self)
{
    char name[16] = "";
    ::GetClassNameA(window, name, sizeof name);
    if (std::strcmp(name, "#32770") != 0 || !::IsWindowVisible(window))
        return TRUE;
    reinterpret_cast<Answers*>(self)->answer(window);
    return FALSE;
}

void Answers::answer(HWND dialog)
{
    const std::string title = textOf(dialog);
    const bool known = std::exchange(m_answered, dialog) == dialog;
    if (title == "Zavik MDI Tabs - Options") {
        m_optionsShown += !known;
        m_onOptions ? m_onOptions(dialog) : press(dialog, IDCANCEL);
    } else if (!known) {
        const LRESULT icon = ::SendDlgItemMessageA(dialog, 1088, STM_GETICON, 0, 0);
        m_boxes.push_back({title, textOf(::GetDlgItem(dialog, 0xFFFF)), reinterpret_cast<HICON>(icon)});
        if (const auto act = std::exchange(m_inFirstBox, {}))
            act();
        ::PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    }
}
