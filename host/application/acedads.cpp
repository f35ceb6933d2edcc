// The C-style calls of the API: system variables and command-line output.

#include "objectarx/acedads.h"

#include "host/application/Application.h"
#include "host/drawing/Faults.h"
#include "host/ui/MainFrame.h"
#include "objectarx/acutads.h"
#include "objectarx/rxmfcapi.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>

using host::Application;

int acedGetVar(const char* sName, resbuf* pResult)
{
    if (sName == nullptr || pResult == nullptr || Application::instance() == nullptr || host::Faults::hit("acedGetVar"))
        return RTERROR;
    const auto value = Application::instance()->variables().get(sName);
    if (!value)
        return RTERROR;
    resbuf result{};
    result.restype = static_cast<short>(value->type);
    switch (value->type) {
    case RTSTR:
        if (acutNewString(value->text.c_str(), result.resval.rstring) != Acad::eOk)
            return RTERROR;
        break;
    case RTSHORT:
        result.resval.rint = static_cast<short>(value->numbers[0]);
        break;
    case RTLONG:
        result.resval.rlong = static_cast<int>(value->numbers[0]);
        break;
    default:  // a real number stands where a point's first one does
        std::copy(value->numbers.begin(), value->numbers.end(), result.resval.rpoint);
    }
    *pResult = result;
    return RTNORM;
}

int acedSetVar(const char* sName, const resbuf* pValue)
{
    if (sName == nullptr || pValue == nullptr || Application::instance() == nullptr || host::Faults::hit("acedSetVar"))
        return RTERROR;
    host::VariableValue value;
    value.type = pValue->restype;
    switch (value.type) {
    case RTSTR:
        value.text = pValue->resval.rstring != nullptr ? pValue->resval.rstring : "";
        break;
    case RTSHORT:
        value.numbers[0] = pValue->resval.rint;
        break;
    case RTLONG:
        value.numbers[0] = pValue->resval.rlong;
        break;
    default:
        std::copy_n(pValue->resval.rpoint, host::VariableValue::count(value.type), value.numbers.begin());
    }
    try {
        const auto result = Application::instance()->variables().set(sName, value);
        return result == host::SystemVariables::SetResult::done ? RTNORM : RTERROR;
    } catch (const dxf::FileError&) {
        return RTERROR;
    }
}

int acutPrintf(const char* sFormat, ...)
{
    if (host::Faults::hit("acutPrintf"))
        return RTERROR;
    constexpr std::size_t longest = 132;
    char text[longest + 1];
    va_list arguments;
    va_start(arguments, sFormat);
    std::vsnprintf(text, sizeof text, sFormat, arguments);
    va_end(arguments);
    if (Application* const pApplication = Application::instance())
        pApplication->commandLine().print(text);
    return RTNORM;
}

CMDIFrameWnd* acedGetAcadFrame()
{
    return Application::instance() != nullptr ? &Application::instance()->frame() : nullptr;
}

BOOL acedRegisterFilterWinMsg(AcedFilterWinMsgFn* pfn)
{
    return Application::instance() != nullptr && !host::Faults::hit("acedRegisterFilterWinMsg") &&
           Application::instance()->addFilter(pfn);
}

// Its caller cannot repeat it, so it does its work whatever it answers.
BOOL acedRemoveFilterWinMsg(AcedFilterWinMsgFn* pfn)
{
    const bool removed = Application::instance() != nullptr && Application::instance()->removeFilter(pfn);
    return removed && !host::Faults::hit("acedRemoveFilterWinMsg");
}

AcApDocManager* acDocManagerPtr()
{
    return Application::instance() != nullptr ? &Application::instance()->documents() : nullptr;
}

AcRxDictionary* acrxSysRegistry()
{
    static host::Dictionary empty;
    return Application::instance() != nullptr ? &Application::instance()->systemRegistry() : &empty;
}
