// The C-style calls of the API: system variables and command-line output.

#include "objectarx/acedads.h"

#include "host/application/Application.h"
#include "host/drawing/Faults.h"
#include "host/ui/MainFrame.h"
#include "objectarx/acutads.h"
#include "objectarx/rxmfcapi.h"

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
        result.resval.rint = static_cast<short>(value->number);
        break;
    case RTLONG:
        result.resval.rlong = value->number;
        break;
    case RTREAL:
        result.resval.rreal = value->real[0];
        break;
    default:
        for (int i = 0; i < 3; ++i)
            result.resval.rpoint[i] = value->real[i];
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
        value.number = pValue->resval.rint;
        break;
    case RTLONG:
        value.number = pValue->resval.rlong;
        break;
    case RTREAL:
        value.real[0] = pValue->resval.rreal;
        break;
    case RTPOINT:
    case RT3DPOINT:
        for (int i = 0; i < 3; ++i)
            value.real[i] = pValue->resval.rpoint[i];
        break;
    default:
        return RTERROR;
    }
    const auto result = Application::instance()->variables().set(sName, value);
    return result == host::SystemVariables::SetResult::done ? RTNORM : RTERROR;
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

AcApDocManager* acDocManagerPtr()
{
    return Application::instance() != nullptr ? &Application::instance()->documents() : nullptr;
}
