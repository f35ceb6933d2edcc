#pragma once

// What the strip needs to know of one open drawing, read in one go.

#include "library/drawing/ARXDrawingProperties.h"
#include "library/expansion/ARXKeywordExpansion.h"
#include "mfc/afx.h"

#include <optional>
#include <vector>

class AcApDocument;
class AcDbDatabase;

class CDatabaseData {
public:
    // Reads the drawing, which must belong to an open document and stays the host's.
    // Null gives an object without a drawing. What is raised while reading goes on to
    // the caller; the working database is as before in any case.
    explicit CDatabaseData(AcDbDatabase* pDatabase = nullptr);
    virtual ~CDatabaseData() = default;
    CDatabaseData(const CDatabaseData&) = default;
    CDatabaseData& operator=(const CDatabaseData&) = default;

    // For templates; asks for the drawing's file name as it was when this was built.
    Tesk::CARXKeywordExpansion& keywordExpansion() { return *m_keywordExpansion; }
    // Full paths of the attached, loaded external references, in block-table order; two
    // references to one file are two entries.
    std::vector<CString>& xrefPaths() { return m_vecXrefPaths; }
    Tesk::CARXDrawingProperties& drawingProperties() { return m_drawingProperties; }

    AcDbDatabase* database() const { return m_pDatabase; }
    AcApDocument* document() const { return m_pDocument; }

    // The list, read from the drawing; empty when its block table cannot be opened, and,
    // after an assertion, without a drawing.
    std::vector<CString> getXrefPaths() const;

private:
    void read();

    // Always there once the object is built; building one takes a while.
    std::optional<Tesk::CARXKeywordExpansion> m_keywordExpansion;
    std::vector<CString> m_vecXrefPaths;
    Tesk::CARXDrawingProperties m_drawingProperties;
    AcDbDatabase* m_pDatabase;
    AcApDocument* m_pDocument = nullptr;
};
