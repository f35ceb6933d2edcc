#pragma once

namespace Tesk {

// Writes one line, stamped with the local time and the application's name, to an attached
// debugger, the log file and the CAD command line.
void writeTrace(const char* sMessage);

}  // namespace Tesk
