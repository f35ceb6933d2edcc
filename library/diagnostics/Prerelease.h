#pragma once

// Diagnostics switches, the trace channel and assertions. They know a format and where
// things go, not what becomes of them: that asks for paths and the registry, and these trace.
//
// Everything here is off until setDiagnosticsLevel says otherwise; a disabled
// trace or assertion costs a load and a branch and evaluates no argument.

#include "library/diagnostics/Compiler.h"

namespace Tesk {

namespace Detail {
// The switches of the current level. Written by setDiagnosticsLevel alone.
struct CDiagnosticsSwitches {
    bool m_bConsole = false;
    bool m_bLog = false;
    bool m_bAssertions = false;
};
extern CDiagnosticsSwitches g_switches;

// Reports a failed check and breaks into an attached debugger, if there is one.
// sSource may carry a directory and an extension; the report names neither.
void assertionFailed(const char* sSource, int iLine, const char* sExpression) noexcept;
}  // namespace Detail

// Where things go. Nowhere, until the library starts.
struct CDiagnosticsSinks {
    // Before traces are switched on.
    void (*m_pPrepare)() = [] {};
    // A message as the caller of trace wrote it.
    void (*m_pTrace)(const char* sMessage) = [](const char*) {};
    // A failed check; the source as in assertionFailed.
    void (*m_pAssertion)(const char* sSource, int iLine, const char* sExpression) = [](const char*, int, const char*) {
    };
};
void setDiagnosticsSinks(const CDiagnosticsSinks& sinks);

// 0: nothing; 1: assertions alone; 2: trace, log, console and assertions.
// Any other level changes nothing.
void setDiagnosticsLevel(int iLevel);

// The level last set.
int getDiagnosticsLevel();

inline bool isTraceEnabled() { return Detail::g_switches.m_bLog; }
inline bool isAssertionEnabled() { return Detail::g_switches.m_bAssertions; }

// Writes one line, stamped with the local time and the application's name, to
// an attached debugger, the log file and the CAD command line. Nothing below
// level 2. Never raises. Call it through TESK_TRACE.
void trace(const char* sFormat, ...) noexcept TESK_PRINTF(1, 2);

}  // namespace Tesk

// A trace line: printf-style format and arguments.
#define TESK_TRACE(...) \
    do { \
        if (::Tesk::isTraceEnabled()) \
            ::Tesk::trace(__VA_ARGS__); \
    } while (false)

// A precondition: looked at only while assertions are enabled, so the
// expression must have no side effect. Execution goes on in any case.
#define TESK_ASSERT_TEXT(condition, text) \
    do { \
        if (::Tesk::isAssertionEnabled() && !(condition)) \
            ::Tesk::Detail::assertionFailed(__FILE__, __LINE__, text); \
    } while (false)
#define TESK_ASSERT(expression) TESK_ASSERT_TEXT(expression, #expression)

// The result of a call: the expression is always evaluated; its being false is
// reported only while assertions are enabled.
#define TESK_VERIFY_TEXT(condition, text) \
    do { \
        if (!(condition) && ::Tesk::isAssertionEnabled()) \
            ::Tesk::Detail::assertionFailed(__FILE__, __LINE__, text); \
    } while (false)
#define TESK_VERIFY(expression) TESK_VERIFY_TEXT(expression, #expression)
