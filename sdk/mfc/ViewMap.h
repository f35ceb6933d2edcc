#pragma once

// Objects that only carry somebody else's handle. A view lives at least as long as its
// handle; those of dead handles go when the next one comes. Without memory there is no
// view: null.
#include <iterator>
#include <memory>
#include <unordered_map>

namespace toolkit {

template <class Handle, class View, auto IsAlive>
class ViewMap {
public:
    View* of(Handle handle) noexcept
    {
        try {
            const auto known = m_views.find(handle);
            if (known != m_views.end())
                return known->second.get();
            sweep();
            return m_views.emplace(handle, std::make_unique<View>(handle)).first->second.get();
        } catch (...) {
            return nullptr;
        }
    }

private:
    void sweep()
    {
        for (auto view = m_views.begin(); view != m_views.end();)
            view = IsAlive(view->first) ? std::next(view) : m_views.erase(view);
    }

    std::unordered_map<Handle, std::unique_ptr<View>> m_views;
};

}  // namespace toolkit
