#pragma once

// Objects that only carry somebody else's handle. A view lives at least as
// long as its handle; those of dead handles are swept as the map grows. Without
// memory there is no view: null.
#include <algorithm>
#include <memory>
#include <unordered_map>

namespace toolkit {

template <class Handle, class View, auto IsAlive>
class ViewMap {
public:
    View* of(Handle handle) noexcept
    {
        try {
            if (m_views.size() >= m_limit)
                sweep();
            auto& view = m_views[handle];
            if (!view)
                view = std::make_unique<View>(handle);
            return view.get();
        } catch (...) {
            return nullptr;
        }
    }

private:
    void sweep()
    {
        std::erase_if(m_views, [](const auto& entry) { return !IsAlive(entry.first); });
        m_limit = std::max(minimum, m_views.size() * 2);
    }

    static constexpr std::size_t minimum = 32;
    std::size_t m_limit = minimum;
    std::unordered_map<Handle, std::unique_ptr<View>> m_views;
};

}  // namespace toolkit
