// The controls: the report grid and the segment display, without a toolkit.
// Their windows are in qor/controls/wx/ (target Qor::gui).
#pragma once

#include "qor/platform/WinGeometry.h"
#include "qor/controls/report/CSuperReportCtrl2.h"
#include "qor/controls/report/CSuperReportCtrl2Container.h"
#include "qor/controls/report/ReportSort.h"
#include "qor/controls/report/ReportTypes.h"
#include "qor/controls/report/SortKeys.h"
#include "qor/controls/report/TipText.h"
#include "qor/controls/digi/CDigiChar.h"
#include "qor/controls/digi/CDigistring.h"
#include "qor/controls/digi/DigiDraw.h"
#include "qor/controls/digi/DigiShapes.h"
