#pragma once

#include <functional>
#include <map>

#include "sparlow/graph/Readouts.h"
#include "sparlow/platform/window/CWnd.h"

class QLabel;
class QWidget;

namespace sparlow::host {

/// Every readout that a graph sends, as rows of captions and values. It receives as a window
/// without a place on the screen, and shows in a widget that belongs to the program's window.
/// Threads: the window's.
class InfoBar : public CWnd {
 public:
  InfoBar();
  ~InfoBar() override;

  /// To be put into a layout, which then owns it. Its labels are named after the readouts, such as
  /// readout.leftX.
  QWidget* Widget() const { return widget_; }
  /// Forgets all values once the messages that are on their way have come.
  void Clear();
  /// Told when a user has moved a cursor.
  std::function<void()> cursorMoved;

  LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Field {
    const char* caption = nullptr;
    QLabel* label = nullptr;
  };

  void take(const ReadoutRecord& record);
  void show(Readout what, const std::string& text, const std::string& more = {});
  void clearFrom(Readout first, Readout last);

  QWidget* const widget_;
  std::map<Readout, Field> fields_;
};

}  // namespace sparlow::host
