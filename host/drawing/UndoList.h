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
    // The bits stay in DBMOD until the first save.
    UndoList(Database& database, int stickyBits) : m_database(database), m_stickyBits(stickyBits) {}

    // The text of an object's record, by a whole open, modify and close.
    void changeObject(AcDbStub& node, std::string sText);
    // The same for an object that a caller has open for write; its close tells
    // of the modification.
    void changeOpenObject(AcDbStub& node, std::string sText);
    // A record that no object stands for; nobody is told.
    void changeRecord(DxfRecord& record, std::string sText);
    // The header, or another record that keeps variables, with the names (without
    // "$") of those that change.
    void changeHeader(DxfRecord& header, std::string sText, std::vector<std::string> names);
    // Objects whose records are linked and whose nodes exist already.
    void appended(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records);
    void erase(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records);

    void beginGroup();
    void endGroup();
    bool undo();
    bool redo();
    // The drawing as it is now is what the file holds.
    void setSaved();

private:
    enum class Kind { Text, Header, Append, Erase };
    struct Step {
        Kind kind = Kind::Text;
        DxfRecord* record = nullptr;
        std::string_view otherText;
        std::vector<AcDbStub*> nodes;
        std::vector<DxfRecord*> records;
        std::vector<std::string> names;
    };
    struct Group {
        std::vector<Step> steps;
        int bits = 0;
    };

    void remember(Step step, int bits);
    void apply(Step& step, bool forward);
    void swapText(Step& step);
    void setPresent(Step& step, bool present);
    int bitsBetween(std::size_t from, std::size_t to) const;
    void updateDbmod();

    static constexpr std::size_t kNever = static_cast<std::size_t>(-1);
    Database& m_database;
    std::vector<Group> m_groups;
    std::size_t m_position = 0;
    // Where in the list the saved state is; kNever once it cannot be reached.
    std::size_t m_saved = 0;
    int m_stickyBits;
    int m_depth = 0;
    // The last group is still taking in steps.
    bool m_groupOpen = false;
};

// Makes the edits between its construction and its end one undo step.
class UndoGroup {
public:
    explicit UndoGroup(UndoList& list) : m_list(list) { m_list.beginGroup(); }
    ~UndoGroup() { m_list.endGroup(); }
    UndoGroup(const UndoGroup&) = delete;
    UndoGroup& operator=(const UndoGroup&) = delete;

private:
    UndoList& m_list;
};

}  // namespace host
