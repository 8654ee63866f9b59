#pragma once

namespace sparlow {

/// Enters what the views look up by number: pointer 102, menu 194 and dialog 193, and installs the
/// dialog as what edits the range of an axis, if nothing else is. The first view does it; a host
/// that wants to use the resources before that, or to put others in their place, calls it itself. A
/// second call does nothing.
void AttachResources();

}  // namespace sparlow
