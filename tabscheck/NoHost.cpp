// What the library calls of a running host: here there is none.

#include "objectarx/acdocman.h"
#include "objectarx/acedads.h"
#include "objectarx/acutads.h"

AcApDocManager* acDocManagerPtr() { return nullptr; }

int acedGetVar(const char*, resbuf*) { return RTERROR; }

int acedSetVar(const char*, const resbuf*) { return RTERROR; }

int acutPrintf(const char*, ...) { return RTNORM; }
