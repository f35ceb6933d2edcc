#include "dxf/TextObjects.h"

#include "dxf/ApiCalls.h"
#include "dxf/Drawing.h"

#include <numbers>

namespace dxf {

template <class Base>
std::string_view TextFace<Base>::value(int code) const
{
    return this->mayRead() ? this->node().record->value(code) : std::string_view();
}

template <class Base>
char* TextFace<Base>::newString(int code) const
{
    char* sResult = nullptr;
    const std::string sText = this->node().database->file().encoding().decode(value(code));
    acutNewString(sText.c_str(), sResult);
    return sResult;
}

template <class Base>
AcGePoint3d TextFace<Base>::point(int code) const
{
    return {toDouble(value(code)), toDouble(value(code + 10)), toDouble(value(code + 20))};
}

template <class Base>
char* TextFace<Base>::textString() const
{
    if (!this->mayRead())
        return nullptr;
    return newString(1);
}

template <class Base>
Acad::ErrorStatus TextFace<Base>::setTextString(const char* sText)
{
    if (sText == nullptr)
        return Acad::eInvalidInput;
    AcDbStub& target = this->node();
    if (!target.writer) {
        Drawing::countMisuse();
        return Acad::eNotOpenForWrite;
    }
    const DxfFile& file = target.database->file();
    return target.database->changeOpenObject(target, withValue(file, *target.record, 1, file.encoding().encode(sText)));
}

template <class Base>
AcGePoint3d TextFace<Base>::position() const
{
    return point(10);
}

template <class Base>
AcGePoint3d TextFace<Base>::alignmentPoint() const
{
    return point(11);
}

template <class Base>
AcGeVector3d TextFace<Base>::normal() const
{
    if (value(210).empty())
        return {};
    const AcGePoint3d direction = point(210);
    return {direction.x, direction.y, direction.z};
}

template <class Base>
double TextFace<Base>::height() const
{
    return toDouble(value(40));
}

template <class Base>
double TextFace<Base>::oblique() const
{
    return toDouble(value(51)) * std::numbers::pi / 180.0;
}

template <class Base>
AcDb::TextHorzMode TextFace<Base>::horizontalMode() const
{
    const int mode = toInt(value(72));
    return mode < AcDb::kTextLeft || mode > AcDb::kTextFit ? AcDb::kTextLeft : static_cast<AcDb::TextHorzMode>(mode);
}

template <class Base>
Adesk::Boolean TextFace<Base>::isMirroredInX() const
{
    return (toInt(value(71)) & 2) != 0;
}

template <class Base>
Adesk::Boolean TextFace<Base>::isMirroredInY() const
{
    return (toInt(value(71)) & 4) != 0;
}

template class TextFace<AcDbText>;
template class TextFace<AcDbAttribute>;

char* Attribute::tag() const
{
    if (!mayRead())
        return nullptr;
    return newString(2);
}

Adesk::UInt32 Attribute::fieldLength() const { return static_cast<Adesk::UInt32>(toInt(value(73))); }

Adesk::Boolean Attribute::flag(int bit) const { return (toInt(value(70)) & bit) != 0; }

}  // namespace dxf
