#pragma once

#include "sparlow/platform/base/UiThread.h"

namespace sparlow::qt {

/// Opens a message box on the screen and returns the button that closed it, which is always OK.
int OpenMessageBox(const BoxRequest& request);

}  // namespace sparlow::qt
