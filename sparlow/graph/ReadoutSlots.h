#pragma once

#include <cstdint>

#include "sparlow/platform/window/Messages.h"

namespace sparlow {

/// The sending half of the readouts: each call stores a whole record in the slot of its message and
/// posts the slot. Made before anything is read that it will send: of two threads that send the
/// same readout, the one that began first may have read what is old by now, so it never replaces a
/// record of the later one.
/// Threads: any, each with its own.
class ReadoutSender {
 public:
  explicit ReadoutSender(HWND receiver);

  /// Brings value to the prefix that suits it.
  void Send(UINT message, double value, const char* unit) const;
  /// A drift, unscaled. cursorValue null: it is that of the whole series.
  void SendDrift(UINT message, double wholeValue, const double* cursorValue,
                 const char* unit) const;
  /// The samples between the cursors, with what the series calls a sample.
  void SendSampleCount(int count, const char* word) const;

 private:
  const HWND receiver_;
  const std::uint64_t turn_;
};

}  // namespace sparlow
