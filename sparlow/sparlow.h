#pragma once

/// @file
/// Everything that a host needs, but for the header that embeds views in a program's windows:
/// sparlow/platform/qt/Application.h. Which threads may use what is a rule in
/// sparlow/platform/base/Threads.h.

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
#include "sparlow/multi/MultiGraph.h"
#include "sparlow/multi/MultiGraphWithMasks.h"
#include "sparlow/platform/base/ErrorBox.h"
#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/paint/CDC.h"
#include "sparlow/platform/window/CDocument.h"
#include "sparlow/platform/window/CMenu.h"
#include "sparlow/platform/window/Input.h"
#include "sparlow/platform/window/Resources.h"
#include "sparlow/platform/window/Windows.h"
#include "sparlow/ui/CMultiGraphView.h"
#include "sparlow/ui/CMultiGraphViewWithMasks.h"
#include "sparlow/ui/CSingleGraphView.h"
#include "sparlow/view/Analysis.h"
#include "sparlow/view/ViewData.h"
