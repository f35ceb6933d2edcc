#include "host/observation/Dialogs.h"

#include "host/commands/Command.h"
#include "host/observation/Windows.h"

namespace host::observation {

namespace {

std::string describeControl(HWND control)
{
    const bool isButton = classOf(control) == "Button";
    const LRESULT checked = isButton ? ::SendMessageA(control, BM_GETCHECK, 0, 0) : 0;
    return "control " + std::to_string(LOWORD(::GetDlgCtrlID(control))) + ": \"" + oneLine(textOf(control)) +
           "\" checked=" + std::to_string(checked) + " enabled=" + (::IsWindowEnabled(control) ? "1" : "0") + "\n";
}

struct Key {
    const char* name;
    WPARAM code;
};

constexpr Key kKeys[] = {{"TAB", VK_TAB},       {"SPACE", VK_SPACE}, {"ENTER", VK_RETURN},
                         {"ESCAPE", VK_ESCAPE}, {"UP", VK_UP},       {"DOWN", VK_DOWN}};

}  // namespace

std::string describeDialog()
{
    const HWND dialog = topDialog();
    if (dialog == nullptr)
        return "dialog: none\n";
    std::string lines = "dialog: \"" + oneLine(textOf(dialog)) + "\"\n";
    for (HWND control = ::GetWindow(dialog, GW_CHILD); control != nullptr; control = ::GetWindow(control, GW_HWNDNEXT))
        lines += describeControl(control);
    return lines;
}

void press(int id)
{
    const HWND dialog = topDialog();
    if (dialog == nullptr)
        throw CommandError("There is no dialog.");
    const HWND control = ::GetDlgItem(dialog, id);
    if (control == nullptr)
        throw CommandError("The dialog has no control " + std::to_string(id) + ".");
    if (!::IsWindowEnabled(control))
        throw CommandError("The control " + std::to_string(id) + " is disabled.");
    // A person's click: down and up, through the dialog's message loop.
    RECT rect;
    ::GetClientRect(control, &rect);
    const POINT middle = {rect.right / 2, rect.bottom / 2};
    postMouse(control, WM_LBUTTONDOWN, MK_LBUTTON, middle, Pointer::There);
    postMouse(control, WM_LBUTTONUP, 0, middle, Pointer::There);
}

void pressKey(const std::string& sName)
{
    const HWND dialog = topDialog();
    const HWND focus = dialog == nullptr || ::IsChild(dialog, ::GetFocus()) ? ::GetFocus() : dialog;
    for (const Key& key : kKeys)
        if (sName == key.name) {
            ::PostMessageA(focus, WM_KEYDOWN, key.code, 1);
            ::PostMessageA(focus, WM_KEYUP, key.code, static_cast<LPARAM>(0xC0000001u));
            return;
        }
    throw CommandError("There is no key " + sName + ".");
}

}  // namespace host::observation
