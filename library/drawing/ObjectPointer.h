#pragma once

// Owners of what the host's API hands out: open objects, and strings.

#include "library/diagnostics/Guard.h"
#include "objectarx/dbmain.h"

namespace Tesk {

// An open database object, closed on every path. close() is for the normal path,
// where the caller checks the status.
template <class Object>
class CObjectPointer {
public:
    CObjectPointer() = default;
    explicit CObjectPointer(Object* pObject) : m_pObject(pObject) {}
    ~CObjectPointer()
    {
        if (m_pObject != nullptr)
            guarded("Closing an object", [this] { m_pObject->close(); });
    }
    CObjectPointer(const CObjectPointer&) = delete;
    CObjectPointer& operator=(const CObjectPointer&) = delete;

    // Where an opening call puts the object; this must be empty.
    Object*& out() { return m_pObject; }
    Object* get() const { return m_pObject; }
    Object* operator->() const { return m_pObject; }
    explicit operator bool() const { return m_pObject != nullptr; }

    // The object must be open. Whatever the status, the pointer is dead then; when the
    // call raises, the scope's end closes the object.
    Acad::ErrorStatus close()
    {
        const Acad::ErrorStatus status = m_pObject->close();
        m_pObject = nullptr;
        return status;
    }

private:
    Object* m_pObject = nullptr;
};

// A string that the host allocated; a null one reads as empty.
template <void (*Free)(char*&)>
class CHostString {
public:
    CHostString() = default;
    explicit CHostString(char* sText) : m_sText(sText) {}
    ~CHostString()
    {
        if (m_sText != nullptr)
            Free(m_sText);
    }
    CHostString(const CHostString&) = delete;
    CHostString& operator=(const CHostString&) = delete;

    // Where a call puts the string; this must be empty.
    char*& out() { return m_sText; }
    const char* text() const { return m_sText != nullptr ? m_sText : ""; }

private:
    char* m_sText = nullptr;
};

inline void freeByDatabase(char*& sText) { acdbFree(sText); }
inline void freeByUtilities(char*& sText) { acutDelString(sText); }

using CDatabaseString = CHostString<freeByDatabase>;
using CUtilityString = CHostString<freeByUtilities>;

}  // namespace Tesk
