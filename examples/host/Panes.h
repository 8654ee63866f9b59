#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "examples/host/HostOptions.h"
#include "examples/host/HostWindow.h"
#include "examples/host/InfoBar.h"
#include "examples/host/MainWindow.h"
#include "examples/host/Pane.h"
#include "sparlow/graph/GraphColors.h"

namespace sparlow::host {

/// All panes of the window, a tab each: which one is in front and what a user does there, with the
/// readouts of that one below it.
/// Threads: the window's.
class Panes {
 public:
  using List = std::vector<std::unique_ptr<Pane>>;

  /// Both must outlive this.
  Panes(HostWindow& window, const HostOptions& options);
  Panes(const Panes&) = delete;
  Panes& operator=(const Panes&) = delete;
  ~Panes();

  /// Shows a channel where the options want it.
  void Show(Channel& channel);
  /// Everything is to be shown from now on, the first or the analysis that the options ask for in
  /// front.
  void Begin();
  /// Ends all views. Their channels must have been stopped.
  void End();
  /// To be called regularly.
  void CatchUp();

  /// Nothing is worked out or drawn in any.
  bool Settled() const;

  const List& All() const { return panes_; }
  /// Null before there is one.
  Pane* Current() const;
  /// Where the active series in front comes from; null without one.
  Channel* CurrentChannel() const { return Current() ? Current()->ActiveChannel() : nullptr; }
  HWND CurrentView() const { return Current() ? Current()->View().GetSafeHwnd() : nullptr; }
  /// Readouts and the active graph are those in front, whatever was active meanwhile.
  void ShowCurrent();

  /// @name What a user does
  void Command(ViewCommand command);
  void TakeScheme(int scheme);
  /// Paints all anew, after a change of a setting of the process.
  void Repaint();
  /// Shows all samples where the newest alone were.
  void ShowAllAgain();
  /// Puts a channel into the view in front, out of any other, or takes it out.
  void Put(Channel& channel, bool on);
  /// Brings a tab with an analysis of the active channel to the front.
  void Analyse(AnalysisKind kind);
  /// Works out what the pane in front shows anew.
  void Recalculate();
  /// Works out all analyses, after a change of what they cover.
  void RecalculateAll();
  /// All samples of a channel have come.
  void SamplesHaveCome(const Channel& channel);
  ///@}

 private:
  void answerWindow();
  void answerViews();
  Pane& open(ViewKind kind);
  void close(const Pane& pane);
  std::size_t indexOf(const Pane& pane) const;
  void bringForward(std::size_t index);
  void bringForward(const CSingleGraphView* view);
  void analyse(Channel& channel, AnalysisKind kind);
  void showReadouts();

  HostWindow& window_;
  const HostOptions& options_;
  GraphColors colors_;
  InfoBar infoBar_;
  MainWindow mainWindow_;
  List panes_;
  std::ptrdiff_t settled_ = 0;  // panes behind the one in front
};

}  // namespace sparlow::host
