#pragma once

// The common controls.
#include "mfc/CImageList.h"
#include "mfc/CTabCtrl.h"
#include "mfc/CToolTipCtrl.h"
