#pragma once

// Identifiers of the tab menu's items. Nobody else handles them.

#include <windows.h>

constexpr UINT IDC_DYNAMIC_MENU_OPTIONS = 22391;
constexpr UINT IDC_DYNAMIC_MENU_SAVE = 22392;
constexpr UINT IDC_DYNAMIC_MENU_CLOSE = 22393;
constexpr UINT IDC_DYNAMIC_MENU_XREFS = 22394;  // the first xref; the others follow
