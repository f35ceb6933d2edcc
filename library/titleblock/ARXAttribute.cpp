#include "library/titleblock/ARXAttribute.h"

#include "library/drawing/ObjectPointer.h"

namespace Tesk {

namespace {

template <class Ordinates>
C3DPoint toPoint(const Ordinates& ordinates)
{
    return C3DPoint(ordinates.x, ordinates.y, ordinates.z);
}

}  // namespace

CARXAttribute::CARXAttribute(const AcDbAttribute& attribute)
    : m_idObject(attribute.objectId()),
      m_sTag(CUtilityString(attribute.tag()).text()),
      m_sText(CUtilityString(attribute.textString()).text()),
      m_bConstant(attribute.isConstant() != Adesk::kFalse),
      m_bInvisible(attribute.isInvisible() != Adesk::kFalse),
      m_bPreset(attribute.isPreset() != Adesk::kFalse),
      m_bVerifiable(attribute.isVerifiable() != Adesk::kFalse),
      m_iFieldLength(attribute.fieldLength()),
      m_ptPosition(toPoint(attribute.position())),
      m_ptAlignment(toPoint(attribute.alignmentPoint())),
      m_dHeight(attribute.height()),
      m_eHorizontalMode(attribute.horizontalMode()),
      m_bMirroredInX(attribute.isMirroredInX() != Adesk::kFalse),
      m_bMirroredInY(attribute.isMirroredInY() != Adesk::kFalse),
      m_ptNormal(toPoint(attribute.normal())),
      m_dOblique(attribute.oblique())
{
}

}  // namespace Tesk
