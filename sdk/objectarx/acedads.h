#pragma once

// System variables. Both answer RTNORM, or RTERROR when there is no such
// variable (or, for setting, it is read-only or of another type).

#include "objectarx/adesk.h"
#include "objectarx/adsdef.h"

// A string result is allocated by the host and freed with acutDelString.
ADESK_API int acedGetVar(const char* sName, resbuf* pResult);
ADESK_API int acedSetVar(const char* sName, const resbuf* pValue);
