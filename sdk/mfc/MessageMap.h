#pragma once

// Message maps: a class lists the messages, notifications and commands that it
// handles; what is not in its list is looked up in its base's.
//
//     class CStrip : public CTabCtrl {
//         void OnMouseMove(UINT flags, CPoint point);
//         DECLARE_MESSAGE_MAP()
//     };
//     BEGIN_MESSAGE_MAP(CStrip, CTabCtrl)
//         ON_WM_MOUSEMOVE()
//     END_MESSAGE_MAP()
//
// A handler's exception ends in the handler's own image: each map names the code
// of its image that runs the handlers.
#include "mfc/Geometry.h"
#include "mfc/Toolkit.h"

#include <windows.h>

class CCmdTarget;
class CCmdUI;
class CMenu;
class CWnd;

constexpr UINT WM_REFLECT_BASE = 0xBC00;  // + WM_NOTIFY: a notification on its way back to its sender
constexpr int CN_COMMAND = 0;
constexpr int CN_UPDATE_COMMAND_UI = -1;

namespace toolkit {

// One message, command or update on its way to a handler.
struct Call {
    UINT message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    UINT id = 0;
    CCmdUI* ui = nullptr;
    LRESULT result = 0;
    bool failed = false;  // the handler ended by an exception
};
using Handler = void (*)(CCmdTarget& target, Call& call);
using Runner = void (*)(Handler handler, CCmdTarget& target, Call& call);

// Runs a handler of this image. An exception that it lets out is written to the
// debugger and freed.
void runHandler(Handler handler, CCmdTarget& target, Call& call) noexcept;

template <class>
struct Member;
template <class Class, class Result, class... Arguments>
struct Member<Result (Class::*)(Arguments...)> {
    using Owner = Class;
};
template <auto Method, class... Arguments>
auto invoke(CCmdTarget& target, Arguments... arguments)
{
    using Owner = typename Member<decltype(Method)>::Owner;
    return (static_cast<Owner&>(target).*Method)(arguments...);
}

CADMFC_API CWnd* windowOf(WPARAM handle);
CADMFC_API CMenu* menuOf(WPARAM handle);

template <auto Method>
void onMessage(CCmdTarget& t, Call& c)
{
    c.result = invoke<Method>(t, c.wParam, c.lParam);
}
template <auto Method>
void onPlain(CCmdTarget& t, Call&)
{
    invoke<Method>(t);
}
template <auto Method>
void onMouse(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, static_cast<UINT>(c.wParam), CPoint(c.lParam));
}
template <auto Method>
void onContextMenu(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, windowOf(c.wParam), CPoint(c.lParam));
}
template <auto Method>
void onInitMenuPopup(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, menuOf(c.wParam), static_cast<UINT>(LOWORD(c.lParam)), static_cast<BOOL>(HIWORD(c.lParam)));
}
template <auto Method>
void onSize(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, static_cast<UINT>(c.wParam), static_cast<int>(LOWORD(c.lParam)),
                   static_cast<int>(HIWORD(c.lParam)));
}
template <auto Method>
void onRange(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, c.id);
}
template <auto Method>
void onUpdate(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, c.ui);
}
template <auto Method>
void onNotify(CCmdTarget& t, Call& c)
{
    invoke<Method>(t, reinterpret_cast<NMHDR*>(c.lParam), &c.result);
}

}  // namespace toolkit

// message 0 closes a list. code: a notification's or command's code; ids count for commands alone.
struct AFX_MSGMAP_ENTRY {
    UINT message;
    int code;
    UINT firstId;
    UINT lastId;
    toolkit::Handler handler;
};
struct AFX_MSGMAP {
    const AFX_MSGMAP* base;
    const AFX_MSGMAP_ENTRY* entries;
    toolkit::Runner run;
};

#define DECLARE_MESSAGE_MAP() \
protected: \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(Class, Base) \
    const AFX_MSGMAP* Class::GetMessageMap() const { return Class::GetThisMessageMap(); } \
    const AFX_MSGMAP* Class::GetThisMessageMap() \
    { \
        using ThisClass [[maybe_unused]] = Class; \
        const AFX_MSGMAP* const base = Base::GetThisMessageMap(); \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP() \
    { \
        0, 0, 0, 0, nullptr \
    } \
    } \
    ; \
    static const AFX_MSGMAP map = {base, entries, &toolkit::runHandler}; \
    return &map; \
    }

// LRESULT handler(WPARAM, LPARAM)
#define ON_MESSAGE(id, handler) {id, 0, 0, 0, &toolkit::onMessage<handler>},
// void handler(), void handler(UINT id) for a range
#define ON_COMMAND(id, handler) {WM_COMMAND, CN_COMMAND, id, id, &toolkit::onPlain<handler>},
#define ON_COMMAND_RANGE(first, last, handler) {WM_COMMAND, CN_COMMAND, first, last, &toolkit::onRange<handler>},
// void handler(CCmdUI*)
#define ON_UPDATE_COMMAND_UI(id, handler) {WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, &toolkit::onUpdate<handler>},
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, handler) \
    {WM_COMMAND, CN_UPDATE_COMMAND_UI, first, last, &toolkit::onUpdate<handler>},
// void handler(NMHDR*, LRESULT*): in the parent, and in the control itself
#define ON_NOTIFY_REFLECT(notification, handler) \
    {WM_REFLECT_BASE + WM_NOTIFY, static_cast<int>(notification), 0, 0, &toolkit::onNotify<handler>},

#define ON_WM_MOUSEMOVE() {WM_MOUSEMOVE, 0, 0, 0, &toolkit::onMouse<&ThisClass::OnMouseMove>},
#define ON_WM_CONTEXTMENU() {WM_CONTEXTMENU, 0, 0, 0, &toolkit::onContextMenu<&ThisClass::OnContextMenu>},
#define ON_WM_INITMENUPOPUP() {WM_INITMENUPOPUP, 0, 0, 0, &toolkit::onInitMenuPopup<&ThisClass::OnInitMenuPopup>},
#define ON_WM_SIZE() {WM_SIZE, 0, 0, 0, &toolkit::onSize<&ThisClass::OnSize>},
#define ON_WM_CLOSE() {WM_CLOSE, 0, 0, 0, &toolkit::onPlain<&ThisClass::OnClose>},
#define ON_WM_PAINT() {WM_PAINT, 0, 0, 0, &toolkit::onPlain<&ThisClass::OnPaint>},
