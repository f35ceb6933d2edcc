#pragma once

// The place where exceptions end: what the host or the system calls of ours runs
// inside a guard, so that nothing is thrown into code that is not ours.

namespace Tesk {

namespace Detail {
// Inside a catch block alone: traces what is being handled under the name of
// the call, and frees it when it is a heap exception.
void endException(const char* sCall) noexcept;
// The same without a word.
void dropException() noexcept;
}  // namespace Detail

// Runs the call; an exception is traced and ends here. True when there was none.
// sCall names the call in the trace ("CClass::method").
template <class Call>
bool guarded(const char* sCall, Call&& call) noexcept
{
    try {
        call();
        return true;
    } catch (...) {
        Detail::endException(sCall);
        return false;
    }
}

// The same without a trace, for the diagnostics themselves: they must not bring
// down what they look at.
template <class Call>
void neverRaise(Call&& call) noexcept
{
    try {
        call();
    } catch (...) {
        Detail::dropException();
    }
}

}  // namespace Tesk
