#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <memory>
#include <vector>

#include "examples/host/Channel.h"
#include "examples/host/HostOptions.h"
#include "examples/host/HostWindow.h"
#include "examples/host/Panes.h"
#include "examples/host/Pictures.h"
#include "examples/host/SeriesMenu.h"
#include "sparlow/platform/qt/Application.h"

namespace sparlow::host {

/// One run of the program: shows the sources in a window, feeds them, leaves pictures, and ends
/// when the user closes the window or, without a display or anything to show, when all is done.
/// Threads: the window's.
class Session {
 public:
  /// interrupts counts the signals that ask for an end: with the first no more samples are taken
  /// and the run ends when that is done, with the second it ends at once. All must outlive the
  /// session.
  Session(qt::Application& application, const HostOptions& options, ErrorLog& log,
          const volatile std::sig_atomic_t& interrupts);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  void Add(std::unique_ptr<SampleSource> source);
  /// A source on show, counted from 0 in the order of Add, until Run returns.
  Channel& At(std::size_t index) { return *channels_.at(index); }
  /// A tab, counted from 0.
  Pane& PaneAt(std::size_t index) { return *panes_.All().at(index); }
  /// Returns when the run is over. Not twice.
  void Run();
  /// Something was shown.
  bool AnySamples() const { return anySamples_; }
  bool ClosedByUser() const { return closedByUser_; }

 private:
  /// @name Menus
  void addMenus();
  void addSeriesMenus();
  void takeNewest(unsigned newest);
  std::vector<SourceItem> sources() const;
  /// Ends the samples of the view in front.
  void stop();
  void print();
  void exportPdf();
  /// Into a file; the log is told when that fails.
  void printTo(const std::string& path);
  ///@}

  void tick();
  void takeDown();
  void showStatus();
  bool allFinished() const;
  void endFeeds();
  void finish();
  void lookForSamples();
  /// @name The end
  /// No more samples are taken, and the run ends when all is done.
  void end();
  /// Asked when the user closes the window.
  bool mayClose();
  void printWhenDone();
  void endIfDone();
  void quit();
  ///@}

  qt::Application& application_;
  const HostOptions& options_;
  ErrorLog& log_;
  const volatile std::sig_atomic_t& interrupts_;
  const bool hasDisplay_;
  HostWindow window_;
  std::vector<std::unique_ptr<Channel>> channels_;
  Panes panes_;  // go before the channels
  QTimer timer_;
  QElapsedTimer clock_;
  Pictures pictures_;
  bool pdfDue_;
  bool ending_ = false;
  bool closedByUser_ = false;
  bool stoppedByUser_ = false;
  bool finished_ = false;
  bool anySamples_ = false;
};

}  // namespace sparlow::host
