#pragma once

// What an attribute of a block reference looked like when it was read.

#include "library/drawing/Points.h"
#include "mfc/afx.h"
#include "objectarx/dbents.h"

namespace Tesk {

class CARXAttribute {
public:
    // Reads an attribute that is open; it stays open and the host's.
    explicit CARXAttribute(const AcDbAttribute& attribute);

    const CString& tag() const { return m_sTag; }
    const CString& text() const { return m_sText; }
    AcDbObjectId objectId() const { return m_idObject; }

    bool isConstant() const { return m_bConstant; }
    bool isInvisible() const { return m_bInvisible; }
    bool isPreset() const { return m_bPreset; }
    bool isVerifiable() const { return m_bVerifiable; }
    unsigned fieldLength() const { return m_iFieldLength; }

    const C3DPoint& position() const { return m_ptPosition; }
    const C3DPoint& alignmentPoint() const { return m_ptAlignment; }
    double height() const { return m_dHeight; }
    AcDb::TextHorzMode horizontalMode() const { return m_eHorizontalMode; }
    bool isMirroredInX() const { return m_bMirroredInX; }
    bool isMirroredInY() const { return m_bMirroredInY; }
    const C3DPoint& normal() const { return m_ptNormal; }
    double oblique() const { return m_dOblique; }

private:
    AcDbObjectId m_idObject;
    CString m_sTag;
    CString m_sText;
    bool m_bConstant;
    bool m_bInvisible;
    bool m_bPreset;
    bool m_bVerifiable;
    unsigned m_iFieldLength;
    C3DPoint m_ptPosition;
    C3DPoint m_ptAlignment;
    double m_dHeight;
    AcDb::TextHorzMode m_eHorizontalMode;
    bool m_bMirroredInX;
    bool m_bMirroredInY;
    C3DPoint m_ptNormal;
    double m_dOblique;
};

}  // namespace Tesk
