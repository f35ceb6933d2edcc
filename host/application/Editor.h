#pragma once

// The editor's events, handed on to its reactors; it watches all databases.

#include "host/drawing/Database.h"
#include "host/drawing/Listeners.h"
#include "objectarx/aced.h"

namespace host {

class Editor final : public AcEditor {
public:
    Editor()
    {
        Database::toBeDestroyed = [this](Database& database) {
            notify(&AcEditorReactor::databaseToBeDestroyed, &database);
        };
    }
    ~Editor() override { Database::toBeDestroyed = nullptr; }

    void addReactor(AcEditorReactor* pReactor) override { m_reactors.add(pReactor); }
    void removeReactor(AcEditorReactor* pReactor) override { m_reactors.remove(pReactor); }
    std::size_t reactorCount() const { return m_reactors.size(); }

    template <class... Parameters, class... Arguments>
    void notify(void (AcEditorReactor::*notification)(Parameters...), Arguments... arguments)
    {
        m_reactors.notify(notification, arguments...);
    }

private:
    Listeners<AcEditorReactor> m_reactors;
};

}  // namespace host
