#pragma once

/* Identifiers of the module's resources; read by the resource compiler too. */

#define IDD_OPTIONS 1000

#define IDC_POSITION_TOP 1000
#define IDC_POSITION_BOTTOM 1001
#define IDC_POSITION_GROUP 1002
#define IDC_USE_TABS 1003
#define IDC_SHOW_EXTENSIONS 1004
#define IDC_SHOW_ICONS 1005
#define IDC_SHOW_TOOLTIPS 1006
#define IDC_DISCREET 1007
#define IDC_DEBUG 1008
