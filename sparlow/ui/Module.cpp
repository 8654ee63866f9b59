#include "sparlow/ui/Module.h"

#include "sparlow/data/SourceData.h"
#include "sparlow/ui/CGraphScale.h"
#include "sparlow/ui/GraphMenu.h"
#include "sparlow/ui/PointingHand.h"

namespace sparlow {

void AttachResources() {
  static const bool attached = [] {
    Resources::AddPointer(PointingHand());
    Resources::AddMenu(kSeriesMenuId, GraphMenu());
    Resources::AddDialog(IDD_GRAPH_SCALE, CGraphScale::Template());
    // Never destroyed, since graphs may last as long as the process. A host's own one stays.
    static auto* const axisDialog = new AxisDialog;
    if (!AxisRangeEditor::Current())
      AxisRangeEditor::Install(axisDialog);
    return true;
  }();
  static_cast<void>(attached);
}

}  // namespace sparlow
