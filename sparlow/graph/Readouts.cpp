#include "sparlow/graph/Readouts.h"

#include <atomic>
#include <cmath>
#include <limits>
#include <mutex>

#include "sparlow/axis/EngineeringPrefix.h"
#include "sparlow/graph/ReadoutSlots.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow {

namespace {

/// What the parameters of one message point to.
struct Slot {
  std::uint64_t turn;  // of the sender
  double values[3];    // of a drift: whole series, between the cursors, unscaled
  int count;
  char text[kUnitChars];
};

constexpr UINT firstMessage = WM_READOUT_LEFT_X;
constexpr UINT lastMessage = WM_READOUT_CURSOR_MOVES;

// For all graphs and for ever: a message may wait long after its graph has gone. One lock serves
// them all, since a readout comes a few times a second and holds it for a copy.
std::mutex slotsLock;
Slot slots[lastMessage - firstMessage + 1];

Slot& slotOf(UINT message) {
  return slots[message - firstMessage];
}

/// False, and nothing is stored, when a later sender has been here.
bool store(UINT message, const Slot& record) {
  const std::lock_guard whole(slotsLock);
  Slot& slot = slotOf(message);
  if (slot.turn > record.turn)
    return false;
  slot = record;
  return true;
}

void storeAndPost(HWND receiver, UINT message, const Slot& record) {
  Slot& slot = slotOf(message);
  if (store(message, record))
    PostMessage(receiver, message, reinterpret_cast<WPARAM>(slot.values),
                reinterpret_cast<LPARAM>(slot.text));
}

std::atomic<std::uint64_t> lastTurn{0};

}  // namespace

ReadoutSender::ReadoutSender(HWND receiver) : receiver_(receiver), turn_(++lastTurn) {}

void ReadoutSender::Send(UINT message, double value, const char* unit) const {
  Slot record{turn_, {value}, 0, {}};
  FormatUnitValue(record.values[0], record.text, unit);
  storeAndPost(receiver_, message, record);
}

void ReadoutSender::SendDrift(UINT message, double wholeValue, const double* cursorValue,
                              const char* unit) const {
  Slot record{turn_, {wholeValue, 0.0, wholeValue}, 0, {}};
  double& scaled = record.values[0];
  FormatUnitValue(scaled, record.text, unit);
  if (!cursorValue)
    record.values[1] = scaled;
  else if (std::abs(wholeValue) > std::numeric_limits<double>::epsilon())
    record.values[1] = *cursorValue / wholeValue * scaled;
  else
    record.values[1] = *cursorValue;
  storeAndPost(receiver_, message, record);
}

void ReadoutSender::SendSampleCount(int count, const char* word) const {
  Slot record{turn_, {}, count, {}};
  CopyUnitText(record.text, word);
  if (store(WM_READOUT_SAMPLES, record))
    PostMessage(receiver_, WM_READOUT_SAMPLES, static_cast<WPARAM>(count),
                reinterpret_cast<LPARAM>(slotOf(WM_READOUT_SAMPLES).text));
}

std::optional<ReadoutRecord> TakeReadout(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message < firstMessage || message > lastMessage)
    return std::nullopt;
  ReadoutRecord record;
  record.what = static_cast<Readout>(message);
  if (message == WM_READOUT_CURSOR_MOVES || message == WM_READOUT_HAS_STATISTICS) {
    const WPARAM most = message == WM_READOUT_HAS_STATISTICS ? 1 : 0;
    if (wParam > most || lParam != 0)
      return std::nullopt;
    record.hasStatistics = wParam == 1;
    return record;
  }
  // Others use these numbers too; the command to recalculate masks lies among them.
  Slot& slot = slotOf(message);
  if (lParam != reinterpret_cast<LPARAM>(slot.text) ||
      (message != WM_READOUT_SAMPLES && wParam != reinterpret_cast<WPARAM>(slot.values)))
    return std::nullopt;
  const std::lock_guard whole(slotsLock);
  record.value = slot.values[0];
  record.cursorValue = slot.values[1];
  record.rawValue = slot.values[2];
  record.count = slot.count;
  record.text = slot.text;
  return record;
}

}  // namespace sparlow
