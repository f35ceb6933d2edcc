#include "mfc/handles.h"

long liveHandles() { return toolkit::handleBalance; }
