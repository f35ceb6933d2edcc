#include "host/drawing/Faults.h"

#include "dxf/ApiCalls.h"

namespace host {

bool Faults::s_armed = false;

namespace {

struct State {
    std::string name;
    int failAt = 0;
    int count = 0;
    bool fired = false;
    void (*pThrow)() = nullptr;
    std::map<std::string, int> calls;
};

State& state()
{
    static State s_state;
    return s_state;
}

}  // namespace

bool Faults::throwNth(const std::string& sName, int n, void (*pThrow)())
{
    if (!prepare(sName))
        return false;
    state() = {sName, n, 0, false, pThrow, {}};
    s_armed = true;
    dxf::pCallFails = &hitArmed;
    return true;
}

void Faults::clear()
{
    s_armed = false;
    dxf::pCallFails = nullptr;
}

int Faults::count() { return state().count; }

bool Faults::fired() { return state().fired; }

const std::map<std::string, int>& Faults::calls() { return state().calls; }

bool Faults::hitArmed(const char* sName)
{
    State& current = state();
    if (current.name != "*" && current.name != sName)
        return false;
    if (current.failAt == 0)
        ++current.calls[sName];
    if (++current.count != current.failAt)
        return false;
    current.fired = true;
    if (current.pThrow != nullptr)
        current.pThrow();
    return true;
}

}  // namespace host
