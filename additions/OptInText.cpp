#include "additions/OptInText.h"

#include "library/registry/Registry.h"
#include "library/text/MultiByte.h"
#include "library/text/StringView.h"
#include "settings/MDITabSettings.h"
#include "settings/TabOptions.h"
#include "settings/TextKeys.h"

#include <cstring>

CString getOptInText(const char* sFilename, const char* sKey)
{
    const CString sText = CMDITabSettings::getDefaultSettings(sFilename)->getValue(sKey);
    for (const TextKey& key : kTextKeys)
        if (key.bQuoted && std::strcmp(key.sName, sKey) == 0)
            return Tesk::toCString(Tesk::MultiByte::withoutQuotes(Tesk::viewOf(sText)));
    return sText;
}

bool isSwitchedOn(const char* sValue)
{
    bool bOn = false;
    Tesk::Registry::GetValue(HKEY_CURRENT_USER, CTabOptions::getKey(), sValue, bOn);
    return bOn;
}
