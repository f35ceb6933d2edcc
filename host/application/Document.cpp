#include "host/application/Document.h"

#include "host/drawing/Paths.h"

namespace host {

std::string Document::title() const { return nameOf(m_sFileName); }

void Document::setFile(const std::string& sPath)
{
    m_sFileName = sPath;
    m_titled = true;
    refreshReadOnly();
}

void Document::refreshReadOnly()
{
    m_readOnly = m_titled && (drawing().file().isBinary() || isWriteProtected(m_sFileName));
}

}  // namespace host
