#pragma once

// Fault injection: makes the n-th call of an API function fail, by its error
// status or by an exception; a notification of that name is not sent. A call's name
// is "acdbGetSummaryInfo" or "AcDbBlockTable::getAt".

#include <cstring>
#include <map>
#include <string>

class AcRxClass;

namespace host {

class Faults {
public:
    // The n-th call from now on (1 is the next) of the named function fails; the
    // name "*" counts the calls of all, and the 0th fails never. One fault at a time. False
    // for an unknown name.
    static bool failNth(const std::string& sName, int n) { return throwNth(sName, n, nullptr); }
    // As before, but the call throws: the function throws what it likes. For use
    // in process only.
    static bool throwNth(const std::string& sName, int n, void (*pThrow)());
    // Ends injection; what count() answers stays.
    static void clear();

    // Calls seen of the armed name since it was armed, and whether the fault came.
    static int count();
    static bool fired();
    // The calls by name, where the 0th was armed.
    static const std::map<std::string, int>& calls();

    // For the entry points: true when this call has to fail.
    static bool hit(const char* sName) { return s_armed && hitArmed(sName); }
    // True when this notification has to be left out.
    template <class Reactor, class... Parameters>
    static bool leavesOut(void (Reactor::*notification)(Parameters...))
    {
        if (!s_armed)
            return false;
        std::size_t place = 0;  // of a virtual function the first word is its offset, and 1
        std::memcpy(&place, &notification, sizeof place);
        return withholds(Reactor::desc(), place / sizeof(void*));
    }

private:
    static bool hitArmed(const char* sName);
    // False for an unknown name.
    static bool prepare(const std::string& sName);
    static bool withholds(const AcRxClass* pReactor, std::size_t place);
    static bool s_armed;
};

}  // namespace host
