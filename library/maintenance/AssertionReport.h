#pragma once

// What a failed check reports, and where reports go.

#include "mfc/afx.h"

namespace Tesk {

// Writes one stamped line to the console (and an attached debugger) and to the
// log file, each when its switch is on. Never raises.
void writeDiagnostic(const char* sText) noexcept;

// Shows the assertion box with the call stack, waits for the user, then writes
// the report. A failure met while the box of the same thread is up is written
// but not shown. The source may carry a directory and an extension; the report
// names neither. Does not ask whether assertions are enabled. Never raises.
void reportAssertion(const char* sSource, int iLine, const char* sExpression) noexcept;

namespace Detail {
// "[hh:mm:ss] ", local.
CString timeStamp();
// Where one is attached.
void sendToDebugger(const CString& sLine);
}  // namespace Detail

}  // namespace Tesk
