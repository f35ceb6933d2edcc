#pragma once

// Texts and attributes: their values are read from the file's tags when asked for.

#include "dxf/Objects.h"

namespace dxf {

template <class Base>
class TextFace : public ObjectFace<Base> {
public:
    using ObjectFace<Base>::ObjectFace;

    char* textString() const override;
    Acad::ErrorStatus setTextString(const char* sText) override;
    AcGePoint3d position() const override;
    AcGePoint3d alignmentPoint() const override;
    AcGeVector3d normal() const override;
    double height() const override;
    double oblique() const override;
    AcDb::TextHorzMode horizontalMode() const override;
    Adesk::Boolean isMirroredInX() const override;
    Adesk::Boolean isMirroredInY() const override;

protected:
    // The value of a tag; empty for a closed object too.
    std::string_view value(int code) const;
    // A new string for the caller, in the API's encoding; null when memory runs out.
    char* newString(int code) const;

private:
    AcGePoint3d point(int code) const;
};

class Attribute final : public TextFace<AcDbAttribute> {
public:
    using TextFace::TextFace;

    char* tag() const override;
    Adesk::UInt32 fieldLength() const override;
    Adesk::Boolean isInvisible() const override { return flag(1); }
    Adesk::Boolean isConstant() const override { return flag(2); }
    Adesk::Boolean isVerifiable() const override { return flag(4); }
    Adesk::Boolean isPreset() const override { return flag(8); }

private:
    Adesk::Boolean flag(int bit) const;
};

}  // namespace dxf
