#pragma once

#include "sparlow/platform/Messages.h"

namespace sparlow {

// The sending half of the readouts: each call stores a whole record in the slot of its message and
// posts the slot. Threads: any.

/// Brings value to the prefix that suits it.
void SendReadout(HWND receiver, UINT message, double value, const char* unit);

/// A drift, unscaled. cursorValue null: it is that of the whole series.
void SendDrift(HWND receiver, UINT message, double wholeValue, const double* cursorValue,
               const char* unit);

/// The samples between the cursors, with what the series calls a sample.
void SendSampleCount(HWND receiver, int count, const char* word);

}  // namespace sparlow
