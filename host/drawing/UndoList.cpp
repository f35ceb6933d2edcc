#include "host/drawing/UndoList.h"

#include <algorithm>
#include <utility>

namespace host {

namespace {

constexpr int kContents = Database::kObjects | Database::kVariables | Database::kField;

}  // namespace

void UndoList::changeObject(AcDbStub& node, std::string sText)
{
    changeOpenObject(node, std::move(sText));
    node.modified = false;
    Notifier(m_database).modified(node);
}

void UndoList::changeOpenObject(AcDbStub& node, std::string sText)
{
    Step step{Kind::Text, node.record, m_database.file().keep(std::move(sText)), {&node}, {}, {}};
    // The modified state is set before anyone hears of the change.
    m_database.markModified(Database::kObjects);
    if (!std::exchange(node.modified, true))
        Notifier(m_database).openedForModify(node);
    swapText(step);
    remember(std::move(step), Database::kObjects);
}

void UndoList::changeRecord(DxfRecord& record, std::string sText)
{
    Step step{Kind::Text, &record, m_database.file().keep(std::move(sText)), {}, {}, {}};
    swapText(step);
    remember(std::move(step), Database::kObjects);
}

void UndoList::changeHeader(DxfRecord& header, std::string sText, std::vector<std::string> names)
{
    Step step{Kind::Header, &header, m_database.file().keep(std::move(sText)), {}, {}, names};
    m_database.markModified(Database::kVariables);
    apply(step, true);
    remember(std::move(step), Database::kVariables);
}

void UndoList::appended(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records)
{
    remember({Kind::Append, nullptr, {}, nodes, std::move(records), {}}, Database::kObjects);
    for (AcDbStub* pNode : nodes)
        Notifier(m_database).appended(*pNode);
}

void UndoList::erase(std::vector<AcDbStub*> nodes, std::vector<DxfRecord*> records)
{
    Step step{Kind::Erase, nullptr, {}, std::move(nodes), std::move(records), {}};
    m_database.markModified(Database::kObjects);
    apply(step, true);
    remember(std::move(step), Database::kObjects);
}

void UndoList::beginGroup() { ++m_depth; }

void UndoList::endGroup()
{
    if (--m_depth == 0)
        m_groupOpen = false;
}

bool UndoList::undo()
{
    if (m_position == 0 || m_depth != 0)
        return false;
    Group& group = m_groups[--m_position];
    updateDbmod();
    for (auto step = group.steps.rbegin(); step != group.steps.rend(); ++step)
        apply(*step, false);
    return true;
}

bool UndoList::redo()
{
    if (m_position == m_groups.size() || m_depth != 0)
        return false;
    Group& group = m_groups[m_position++];
    updateDbmod();
    for (Step& step : group.steps)
        apply(step, true);
    return true;
}

void UndoList::setSaved()
{
    m_saved = m_position;
    m_stickyBits = 0;
    m_database.setDbmod(0);
}

void UndoList::remember(Step step, int bits)
{
    if (!m_groupOpen) {
        if (m_saved != kNever && m_saved > m_position) {
            // A new edit cuts the saved state off the list.
            m_stickyBits |= bitsBetween(m_position, m_saved);
            m_saved = kNever;
        }
        m_groups.resize(m_position);
        m_groups.emplace_back();
        ++m_position;
        m_groupOpen = m_depth != 0;
    }
    m_groups.back().steps.push_back(std::move(step));
    m_groups.back().bits |= bits;
    m_database.markModified(bits);
}

void UndoList::apply(Step& step, bool forward)
{
    Notifier notifier(m_database);
    switch (step.kind) {
    case Kind::Text:
        for (AcDbStub* pNode : step.nodes)
            notifier.openedForModify(*pNode);
        swapText(step);
        for (AcDbStub* pNode : step.nodes)
            notifier.modified(*pNode);
        break;
    case Kind::Header:
        for (const std::string& sName : step.names)
            notifier.variableWillChange(sName);
        swapText(step);
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

int UndoList::bitsBetween(std::size_t from, std::size_t to) const
{
    int bits = 0;
    for (std::size_t i = from; i < to; ++i)
        bits |= m_groups[i].bits;
    return bits;
}

void UndoList::updateDbmod()
{
    const std::size_t saved = m_saved == kNever ? 0 : m_saved;
    const int bits = m_stickyBits | bitsBetween(std::min(saved, m_position), std::max(saved, m_position));
    m_database.setDbmod((m_database.dbmod() & ~kContents) | bits);
}

}  // namespace host
