#include "host/drawing/UndoList.h"

#include <algorithm>
#include <utility>

namespace host {

void UndoList::change(DxfRecord& record, std::string sText, std::vector<AcDbStub*> nodes,
                      std::vector<std::string> names)
{
    begin(names.empty() ? Database::kObjects : Database::kVariables);
    Step step{Kind::Text, &record, m_database.file().keep(std::move(sText)), std::move(nodes), {}, std::move(names)};
    apply(step, true);
    m_groups.back().push_back(std::move(step));
}

void UndoList::changeOpenObject(AcDbStub& node, std::string sText)
{
    begin(Database::kObjects);
    Step step{Kind::Text, node.record, m_database.file().keep(std::move(sText)), {&node}, {}, {}};
    if (!std::exchange(node.modified, true))
        Notifier(m_database).openedForModify(node);
    swapText(step);
    m_groups.back().push_back(std::move(step));
}

void UndoList::appended(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records)
{
    begin(Database::kObjects);
    m_groups.back().push_back({Kind::Append, nullptr, {}, nodes, std::move(records), {}});
    for (AcDbStub* pNode : nodes)
        Notifier(m_database).appended(*pNode);
}

void UndoList::erase(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records)
{
    begin(Database::kObjects);
    Step step{Kind::Erase, nullptr, {}, std::move(nodes), std::move(records), {}};
    apply(step, true);
    m_groups.back().push_back(std::move(step));
}

bool UndoList::undo()
{
    if (m_position == 0 || m_depth != 0)
        return false;
    Group& group = m_groups[--m_position];
    for (auto step = group.rbegin(); step != group.rend(); ++step)
        apply(*step, false);
    return true;
}

bool UndoList::redo()
{
    if (m_position == m_groups.size() || m_depth != 0)
        return false;
    for (Step& step : m_groups[m_position++])
        apply(step, true);
    return true;
}

void UndoList::setSaved()
{
    std::replace(m_states.begin(), m_states.end(), 0, static_cast<int>(Database::kObjects));
    m_states[m_position] = 0;
}

void UndoList::newGroup()
{
    m_database.requireEditable();
    m_groups.resize(m_position++);
    m_groups.emplace_back();
    m_states.resize(m_position);
    m_states.push_back(m_states.back());
}

void UndoList::begin(int bits)
{
    if (m_depth == 0)
        newGroup();
    m_states.back() |= bits;
}

void UndoList::apply(Step& step, bool forward)
{
    Notifier notifier(m_database);
    switch (step.kind) {
    case Kind::Text:
        for (AcDbStub* pNode : step.nodes)
            notifier.openedForModify(*pNode);
        for (const std::string& sName : step.names)
            notifier.variableWillChange(sName);
        swapText(step);
        for (AcDbStub* pNode : step.nodes)
            notifier.modified(*pNode);
        for (const std::string& sName : step.names)
            notifier.variableChanged(sName);
        break;
    case Kind::Append:
        setPresent(step, forward);
        for (AcDbStub* pNode : step.nodes)
            forward ? notifier.reAppended(*pNode) : notifier.unAppended(*pNode);
        break;
    case Kind::Erase:
        setPresent(step, !forward);
        for (AcDbStub* pNode : step.nodes)
            notifier.erased(*pNode, forward);
        break;
    }
}

void UndoList::swapText(Step& step) { step.otherText = m_database.file().setText(*step.record, step.otherText); }

void UndoList::setPresent(Step& step, bool present)
{
    DxfFile& file = m_database.file();
    if (present)
        std::for_each(step.records.rbegin(), step.records.rend(), [&](DxfRecord* p) { file.relink(*p); });
    else
        std::for_each(step.records.begin(), step.records.end(), [&](DxfRecord* p) { file.unlink(*p); });
    for (AcDbStub* pNode : step.nodes)
        pNode->erased = !present;
}

}  // namespace host
