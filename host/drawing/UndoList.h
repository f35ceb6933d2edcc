#pragma once

// Every edit of a drawing goes through here: it is carried out, remembered for
// undo, marked in DBMOD and then told to the reactors, in this order.

#include "dxf/ObjectGraph.h"
#include "host/drawing/Counted.h"
#include "host/drawing/Database.h"

#include <cstddef>
#include <string>
#include <vector>

namespace host {

// Sends a database's notifications.
class Notifier {
public:
    explicit Notifier(Database& database) : m_database(database) {}

    void openedForModify(AcDbStub& node) { tellOf(node, &AcDbDatabaseReactor::objectOpenedForModify); }
    void modified(AcDbStub& node) { tellDone(node, &AcDbDatabaseReactor::objectModified); }
    void appended(AcDbStub& node) { tellDone(node, &AcDbDatabaseReactor::objectAppended); }
    void unAppended(AcDbStub& node) { tellDone(node, &AcDbDatabaseReactor::objectUnAppended); }
    void reAppended(AcDbStub& node) { tellDone(node, &AcDbDatabaseReactor::objectReAppended); }
    void erased(AcDbStub& node, bool isErased) { tellDone(node, &AcDbDatabaseReactor::objectErased, isErased); }
    void variableWillChange(const std::string& sName)
    {
        tell(&AcDbDatabaseReactor::headerSysVarWillChange, sName.c_str());
    }
    void variableChanged(const std::string& sName)
    {
        tell(&AcDbDatabaseReactor::headerSysVarChanged, sName.c_str(), Adesk::kTrue);
        m_database.changeIsTold();
    }

private:
    template <class Notification, class... Arguments>
    void tell(Notification notification, Arguments... arguments)
    {
        const Counted telling(m_database.telling());
        m_database.reactors().notify(notification, &m_database, arguments...);
    }
    template <class Notification, class... Arguments>
    void tellOf(AcDbStub& node, Notification notification, Arguments... arguments)
    {
        const Counted showing(node.notifying);  // reactors may read the object meanwhile
        tell(notification, &node.object(), arguments...);
    }
    // The last that is told of a change.
    template <class Notification, class... Arguments>
    void tellDone(AcDbStub& node, Notification notification, Arguments... arguments)
    {
        tellOf(node, notification, arguments...);
        m_database.changeIsTold();
    }

    Database& m_database;
};

class UndoList {
public:
    // The bits of DBMOD that the drawing begins with.
    UndoList(Database& database, int dbmod) : m_database(database), m_states{dbmod} {}

    // DBMOD's bits for the contents as they are now.
    int dbmod() const { return m_states[m_position]; }

    // The text of a record: of an object's, by a whole open, modify and close; of one that
    // keeps variables, with the names (without "$") of those that change; of one that
    // nobody is told of.
    void changeObject(AcDbStub& node, std::string sText) { change(*node.record, std::move(sText), {&node}, {}); }
    void change(DxfRecord& record, std::string sText, std::vector<AcDbStub*> nodes, std::vector<std::string> names);
    // The same for an object that a caller has open for write; its close tells
    // of the modification.
    void changeOpenObject(AcDbStub& node, std::string sText);
    // Objects whose records are linked and whose nodes exist already.
    void appended(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records);
    void erase(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records);

    bool undo();
    bool redo();
    // The drawing as it is now is what the file holds.
    void setSaved();

private:
    friend class UndoGroup;
    enum class Kind { Text, Append, Erase };
    struct Step {
        Kind kind = Kind::Text;
        DxfRecord* record = nullptr;
        std::string_view otherText;
        std::vector<AcDbStub*> nodes;
        std::vector<DxfRecord*> records;
        std::vector<std::string> names;
    };
    using Group = std::vector<Step>;

    void newGroup();
    // The modified state is set before anyone hears of a change.
    void begin(int bits);
    void apply(Step& step, bool forward);
    void swapText(Step& step);
    void setPresent(Step& step, bool present);

    Database& m_database;
    std::vector<Group> m_groups;
    // DBMOD before the first group, and after each.
    std::vector<int> m_states;
    std::size_t m_position = 0;
    int m_depth = 0;
};

// Makes the edits between its construction and its end one undo step; there is one at least.
class UndoGroup {
public:
    explicit UndoGroup(UndoList& list) : m_list(list)
    {
        if (m_list.m_depth == 0)
            m_list.newGroup();
        ++m_list.m_depth;
    }
    ~UndoGroup() { --m_list.m_depth; }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

private:
    UndoList& m_list;
};

}  // namespace host
