#pragma once

// Identifiers of the items that are added to a tab's menu. Nobody else handles them.

#include <windows.h>

constexpr UINT IDC_DYNAMIC_MENU_CLOSE_OTHERS = 22390;
constexpr UINT IDC_DYNAMIC_MENU_CLOSE_SAVED = 22389;
constexpr UINT IDC_DYNAMIC_MENU_COPY_PATH = 22388;
constexpr UINT IDC_DYNAMIC_MENU_OPEN_FOLDER = 22387;
constexpr UINT IDC_DYNAMIC_MENU_HELP = 22386;
constexpr UINT IDC_DYNAMIC_MENU_SAVE_ALL = 22385;
constexpr UINT IDC_DYNAMIC_MENU_DRAWINGS = 21000;  // the first drawing; the others follow
constexpr UINT IDC_DYNAMIC_MENU_DRAWINGS_END = 22000;
