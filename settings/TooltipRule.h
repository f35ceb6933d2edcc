#pragma once

// By which of three rules a drawing's tooltip is built.

#include "library/drawing/DrawingProperties.h"
#include "library/expansion/ARXKeywordExpansion.h"

enum class TooltipRule {
    Template,  // the drawing holds its title block: TooltipText, expanded
    Title,     // else its Title property, as it stands
    Default    // without one: DefaultTooltipText, as it stands
};

// The drawing's properties must have been read.
inline TooltipRule chooseTooltipRule(const Tesk::CARXKeywordExpansion& expansion, Tesk::CDrawingProperties& properties)
{
    if (expansion.hasTitleInstance())
        return TooltipRule::Template;
    return properties.getTitle().IsEmpty() ? TooltipRule::Default : TooltipRule::Title;
}
