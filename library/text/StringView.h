#pragma once

// Between the toolkit's strings and the standard library's, by bytes.

#include "mfc/afx.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Tesk {

// Good until the text is changed or gone.
inline std::string_view viewOf(const CString& sText)
{
    return std::string_view(sText.GetString(), static_cast<std::size_t>(sText.GetLength()));
}

inline std::string_view viewOf(std::string_view sText) { return sText; }

inline std::string toString(const CString& sText) { return std::string(viewOf(sText)); }

inline CString toCString(std::string_view sText) { return CString(sText.data(), static_cast<int>(sText.size())); }

}  // namespace Tesk
