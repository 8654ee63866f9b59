#pragma once

/// Everything that a host needs, but for the header that embeds views in a program's windows:
/// sparlow/platform/qt/Application.h.

#include "sparlow/axis/EngineeringPrefix.h"
#include "sparlow/axis/GraphAxis.h"
#include "sparlow/data/Error.h"
#include "sparlow/data/SourceData.h"
#include "sparlow/data/StatisticParameters.h"
#include "sparlow/graph/AxisRangeEditor.h"
#include "sparlow/graph/Cursor.h"
#include "sparlow/graph/Graph.h"
#include "sparlow/graph/GraphColors.h"
#include "sparlow/graph/Offset.h"
#include "sparlow/graph/Readouts.h"
#include "sparlow/platform/CDocument.h"
#include "sparlow/platform/CMenu.h"
#include "sparlow/platform/ErrorBox.h"
#include "sparlow/platform/Input.h"
#include "sparlow/platform/Resources.h"
#include "sparlow/platform/UiThread.h"
#include "sparlow/platform/Windows.h"
#include "sparlow/ui/CSingleGraphView.h"
#include "sparlow/view/ViewData.h"
