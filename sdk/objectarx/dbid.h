#pragma once

// Identity of database objects: the id within a session, the handle within the
// drawing file.

#include "objectarx/acadstrc.h"
#include "objectarx/acutads.h"
#include "objectarx/adesk.h"

#include <cstring>

class AcDbStub;

class AcDbObjectId {
public:
    AcDbObjectId() = default;
    explicit AcDbObjectId(AcDbStub* pStub) : m_pStub(pStub) {}

    bool isNull() const { return m_pStub == nullptr; }
    AcDbStub* stub() const { return m_pStub; }
    bool operator==(const AcDbObjectId& other) const { return m_pStub == other.m_pStub; }
    bool operator!=(const AcDbObjectId& other) const { return m_pStub != other.m_pStub; }

private:
    AcDbStub* m_pStub = nullptr;
};

class AcDbHandle {
public:
    AcDbHandle() = default;
    explicit AcDbHandle(unsigned long long value) : m_value(value) {}

    bool isNull() const { return m_value == 0; }
    unsigned long long value() const { return m_value; }

    // Upper-case hexadecimal without leading zeros; the buffer holds 17 bytes.
    void getIntoAsciiBuffer(char* pBuffer) const
    {
        char digits[17];
        int count = 0;
        for (unsigned long long rest = m_value; rest != 0 || count == 0; rest >>= 4)
            digits[count++] = "0123456789ABCDEF"[rest & 15];
        while (count > 0)
            *pBuffer++ = digits[--count];
        *pBuffer = '\0';
    }

private:
    unsigned long long m_value = 0;
};

// A list of ids whose buffer is the host's, so that either side may grow and free it.
class AcDbObjectIdArray {
public:
    AcDbObjectIdArray() = default;
    AcDbObjectIdArray(const AcDbObjectIdArray&) = delete;
    AcDbObjectIdArray& operator=(const AcDbObjectIdArray&) = delete;
    ~AcDbObjectIdArray() { acutDelBuffer(m_pBuffer); }

    int length() const { return m_length; }
    bool isEmpty() const { return m_length == 0; }
    AcDbObjectId operator[](int i) const
    {
        AcDbObjectId id;
        std::memcpy(&id, m_pBuffer + static_cast<std::size_t>(i) * sizeof id, sizeof id);
        return id;
    }

    // False, and unchanged, when memory runs out.
    bool append(AcDbObjectId id)
    {
        if (m_length == m_capacity && !grow())
            return false;
        std::memcpy(m_pBuffer + static_cast<std::size_t>(m_length++) * sizeof id, &id, sizeof id);
        return true;
    }

private:
    bool grow()
    {
        const int capacity = m_capacity == 0 ? 8 : m_capacity * 2;
        char* pNew = nullptr;
        if (acutNewBuffer(pNew, static_cast<std::size_t>(capacity) * sizeof(AcDbObjectId)) != Acad::eOk)
            return false;
        if (m_length != 0)
            std::memcpy(pNew, m_pBuffer, static_cast<std::size_t>(m_length) * sizeof(AcDbObjectId));
        acutDelBuffer(m_pBuffer);
        m_pBuffer = pNew;
        m_capacity = capacity;
        return true;
    }

    char* m_pBuffer = nullptr;
    int m_length = 0;
    int m_capacity = 0;
};
