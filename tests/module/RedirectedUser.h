#pragma once

// The user's registry is a fresh, empty key until the end of the scope.

#include <windows.h>

class RedirectedUser {
public:
    RedirectedUser();
    ~RedirectedUser();
    RedirectedUser(const RedirectedUser&) = delete;
    RedirectedUser& operator=(const RedirectedUser&) = delete;

    // Values of the module's key. get answers -1 for one that is not there or no number.
    void set(const char* name, DWORD value, DWORD type = REG_DWORD) const;
    long long get(const char* name) const;
    // Nobody may write the module's key any more.
    void protect() const;

private:
    HKEY m_key = nullptr;
};
