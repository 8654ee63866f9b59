#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "examples/host/Analyses.h"
#include "examples/host/Channel.h"
#include "examples/host/Kinds.h"
#include "examples/host/PaneView.h"
#include "sparlow/axis/GraphAxis.h"
#include "sparlow/platform/window/CDocument.h"

namespace sparlow::host {

/// Commands of a view, as WM_SPARLOW_COMMAND numbers them, and one that it has in its popup menu
/// only.
enum class ViewCommand : unsigned {
  zoomIn,
  zoomOut,
  zoomToCursors,
  showAll,
  rangeX,
  rangeY,
  autoZoom
};

/// One view with its axes, the series of channels that it shows, and what is worked out from them
/// for it alone. A series is in one pane at a time. Channels must have been stopped when it ends,
/// and end after it.
/// Threads: the window's.
class Pane {
 public:
  /// width and height of the graph in pixels. colors must outlive the pane.
  Pane(ViewKind kind, GraphColors& colors, int width, int height);
  Pane(const Pane&) = delete;
  Pane& operator=(const Pane&) = delete;
  ~Pane();

  /// Told when another series is active, so that the pane has another title.
  std::function<void()> renamed;

  CSingleGraphView& View() const { return view_.View(); }
  ViewKind Kind() const { return kind_; }
  const GraphAxis& Axis() const { return axis_; }
  const std::string& Title() const { return document_.GetTitle(); }

  /// Takes another scheme, or one that has changed: curves that can't be seen on it change too.
  void TakeColors(GraphColors& colors);

  /// @name Series
  /// Adds the series of a channel, which becomes the active one. False, and the library has told
  /// so, when there is no room.
  bool Add(Channel& channel);
  /// Takes it out. False when the pane doesn't have it, or nothing else.
  bool Remove(const Channel& channel);
  bool Shows(const Channel& channel) const;
  std::size_t Count() const { return series_.size(); }
  bool Full() const;
  /// Takes the active series, or mask, out.
  void RemoveActive();
  /// Makes a series the active one, counted in the order in which they were added.
  void Select(std::size_t index);
  /// Where the active series comes from; null without one.
  Channel* ActiveChannel() const;
  ///@}

  /// @name Series that are worked out
  /// Shows nothing but an analysis of a channel.
  void Analyse(Channel& channel, AnalysisKind kind);
  bool IsAnalysis(const Channel& channel, AnalysisKind kind) const;
  /// Adds the moving average of the active channel; the active series stays.
  void AddAverage(unsigned window);
  /// Adds a mask of the active channel, which is worked out with the next RecalculateMasks.
  void AddMask(const MaskKind& kind);
  bool AnyMask() const { return !masks_.empty(); }
  void RemoveLastMask();
  void RemoveAllMasks();
  /// Has the analyses worked out, and the masks that aren't yet.
  void Recalculate();
  void RecalculateMasks();
  /// Makes the masks anew.
  void RenewMasks();
  /// All samples of a channel have come: what was worked out from it is done so again.
  void SamplesHaveCome(const Channel& channel);
  ///@}

  /// Something can be shown, now or when it is worked out.
  bool AnySamples() const;
  /// What is going on with the active series, in plain words, and the share of it that has come.
  std::string Status() const;
  double Progress() const;
  /// To be called regularly: brings the view up to date when something was worked out.
  void CatchUp();
  /// Nothing is worked out or drawn, nor will be by a message that is on its way.
  bool Settled() const { return quiet_ == kQuiet && !View().RenderDue(); }
  /// Has the view carry out a command; a dialog that it opens is closed when this returns.
  void Command(ViewCommand command);

 private:
  struct Item {
    ViewData* series;
    Channel* channel;
    Calculation* calculation;  // null for the channel's own series
  };
  struct Mask {
    Calculation* series;
    Channel* channel;
    MaskKind kind;
  };
  class Document : public CDocument {
   public:
    explicit Document(Pane& pane) : pane_(pane) {}
    void SetTitle(const char* title) override;

   private:
    Pane& pane_;
  };

  HWND window() const { return View().GetSafeHwnd(); }
  Calculation& keep(std::unique_ptr<Calculation> calculation);
  bool addCalculation(Channel& channel, std::unique_ptr<Calculation> calculation);
  void addMask(Channel& channel, const MaskKind& kind);
  void removed(const ViewData* series);
  void takeMaskOut(Calculation& mask);
  void changed();
  bool busy() const;
  void updateIsDue();

  // Calls of CatchUp that found nothing to do. A worker that could do nothing posts an update and is
  // gone: between two such calls it has come.
  static constexpr int kQuiet = 2;

  const ViewKind kind_;
  GraphAxis axis_;
  Document document_{*this};
  PaneView& view_;  // deletes itself with its window
  std::vector<Item> series_;
  std::vector<Mask> masks_;
  std::vector<std::unique_ptr<Calculation>> calculations_;  // those that were taken out, too
  const Channel* analysed_ = nullptr;
  AnalysisKind analysis_{};
  bool updated_ = true;  // since something was worked out
  int quiet_ = 0;
};

}  // namespace sparlow::host
