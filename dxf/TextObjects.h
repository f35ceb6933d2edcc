#pragma once

// Texts and attributes: their values are read from the file's tags when asked for.

#include "dxf/Objects.h"

#include <numbers>

namespace dxf {

template <class Base>
class TextFace : public ObjectFace<Base> {
public:
    using ObjectFace<Base>::ObjectFace;

    char* textString() const override { return newString(1); }
    Acad::ErrorStatus setTextString(const char* sText) override
    {
        if (sText == nullptr)
            return Acad::eInvalidInput;
        AcDbStub& target = this->node();
        if (!target.writer) {
            Drawing::countMisuse();
            return Acad::eNotOpenForWrite;
        }
        const DxfFile& file = target.database->file();
        return target.database->changeOpenObject(target,
                                                 withValue(file, *target.record, 1, file.encoding().encode(sText)));
    }
    AcGePoint3d position() const override { return point(10); }
    AcGePoint3d alignmentPoint() const override { return point(11); }
    AcGeVector3d normal() const override
    {
        if (value(210).empty())
            return {};
        const AcGePoint3d direction = point(210);
        return {direction.x, direction.y, direction.z};
    }
    double height() const override { return toDouble(value(40)); }
    double oblique() const override { return toDouble(value(51)) * std::numbers::pi / 180.0; }
    AcDb::TextHorzMode horizontalMode() const override
    {
        const int mode = toInt(value(72));
        return mode < AcDb::kTextLeft || mode > AcDb::kTextFit ? AcDb::kTextLeft
                                                               : static_cast<AcDb::TextHorzMode>(mode);
    }
    Adesk::Boolean isMirroredInX() const override { return flag(71, 2); }
    Adesk::Boolean isMirroredInY() const override { return flag(71, 4); }

protected:
    // The value of a tag; empty for a closed object too.
    std::string_view value(int code) const
    {
        return this->mayRead() ? this->node().record->value(code) : std::string_view();
    }
    Adesk::Boolean flag(int code, int bit) const { return (toInt(value(code)) & bit) != 0; }
    // A new string for the caller, in the API's encoding; null for a closed object, or when
    // memory runs out.
    char* newString(int code) const
    {
        char* sResult = nullptr;
        if (this->mayRead())
            acutNewString(this->node().database->file().encoding().decode(value(code)).c_str(), sResult);
        return sResult;
    }

private:
    AcGePoint3d point(int code) const
    {
        return {toDouble(value(code)), toDouble(value(code + 10)), toDouble(value(code + 20))};
    }
};

class Attribute final : public TextFace<AcDbAttribute> {
public:
    using TextFace::TextFace;

    char* tag() const override { return newString(2); }
    Adesk::UInt32 fieldLength() const override { return static_cast<Adesk::UInt32>(toInt(value(73))); }
    Adesk::Boolean isInvisible() const override { return flag(70, 1); }
    Adesk::Boolean isConstant() const override { return flag(70, 2); }
    Adesk::Boolean isVerifiable() const override { return flag(70, 4); }
    Adesk::Boolean isPreset() const override { return flag(70, 8); }
};

}  // namespace dxf
