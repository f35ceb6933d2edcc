#include "dxf/Drawing.h"

#include "dxf/ApiCalls.h"
#include "dxf/Objects.h"

namespace dxf {

bool (*pCallFails)(const char* sCall) = nullptr;

Drawing::Drawing(std::unique_ptr<DxfFile> file, const std::string& sPath) : m_sPath(sPath)
{
    replaceContents(std::move(file));
}

void Drawing::replaceContents(std::unique_ptr<DxfFile> file)
{
    // The old objects point into the old file, so they go first.
    m_graph = std::make_unique<ObjectGraph>(*this, *file);
    m_file = std::move(file);
}

Drawing* Drawing::of(const AcDbDatabase* pDatabase)
{
    // There are no others.
    return const_cast<Drawing*>(static_cast<const Drawing*>(pDatabase));
}

Acad::ErrorStatus Drawing::getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode)
{
    pTable = nullptr;
    return openAs(pTable, m_graph->blockTable(), mode, false);
}

}  // namespace dxf
