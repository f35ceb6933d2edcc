#pragma once

// What an attribute of a block reference looked like when it was read.

#include "library/drawing/Points.h"
#include "mfc/afx.h"
#include "objectarx/dbents.h"

namespace Tesk {

struct CARXAttribute {
    // Reads an attribute that is open; it stays open and the host's.
    explicit CARXAttribute(const AcDbAttribute& attribute);

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
