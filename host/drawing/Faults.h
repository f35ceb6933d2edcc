#pragma once

// Fault injection: makes the n-th call of an API function fail, by its error
// status or by an exception. Every entry point of the host's API asks once, by
// its own name ("acdbGetSummaryInfo", "AcDbBlockTable::getAt").

#include <string>

namespace host {

class Faults {
public:
    // The n-th call from now on (1 is the next) of the named function fails; the
    // name "*" counts the calls of all. One fault at a time.
    static void failNth(const std::string& sName, int n);
    // As before, but the call throws: the function throws what it likes. For use
    // in process only.
    static void throwNth(const std::string& sName, int n, void (*pThrow)());
    // Ends injection; what count() answers stays.
    static void clear();

    // Calls seen of the armed name since it was armed, and whether the fault came.
    static int count();
    static bool fired();

    // For the entry points: true when this call has to fail.
    static bool hit(const char* sName) { return s_armed && hitArmed(sName); }

private:
    static bool hitArmed(const char* sName);
    static bool s_armed;
};

}  // namespace host
