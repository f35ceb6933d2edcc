#pragma once

// The listeners on a database, in the order in which they came. A listener may
// add and remove listeners, itself included, while it is being notified: one
// removed hears nothing more, one added hears from the next notification on.

#include "objectarx/dbmain.h"

#include <cstddef>
#include <vector>

namespace host {

class ReactorList {
public:
    // eNullObjectPointer, eDuplicateKey.
    Acad::ErrorStatus add(AcDbDatabaseReactor* pReactor);
    // eNullObjectPointer, eKeyNotFound.
    Acad::ErrorStatus remove(AcDbDatabaseReactor* pReactor);
    std::size_t size() const;

    template <class Call>
    void notify(Call call)
    {
        const Depth depth(*this);
        const std::size_t count = m_reactors.size();
        for (std::size_t i = 0; i < count; ++i)
            if (AcDbDatabaseReactor* pReactor = m_reactors[i])
                call(*pReactor);
    }

private:
    // Counts notifications under way; removed entries go when the last one ends,
    // also when a listener throws.
    class Depth {
    public:
        explicit Depth(ReactorList& list) : m_list(list) { ++m_list.m_depth; }
        ~Depth() { m_list.leave(); }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        ReactorList& m_list;
    };

    void leave();

    std::vector<AcDbDatabaseReactor*> m_reactors;
    int m_depth = 0;
};

}  // namespace host
