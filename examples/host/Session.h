#pragma once

#include <QElapsedTimer>
#include <QTimer>
#include <csignal>
#include <filesystem>
#include <memory>
#include <vector>

#include "examples/host/Channel.h"
#include "examples/host/HostMenu.h"
#include "examples/host/HostOptions.h"
#include "examples/host/HostWindow.h"
#include "examples/host/InfoBar.h"
#include "examples/host/MainWindow.h"
#include "sparlow/graph/GraphColors.h"
#include "sparlow/platform/qt/Application.h"

namespace sparlow::host {

/// One run of the program: shows the sources in a window, feeds them, leaves pictures, and ends
/// when the user closes the window, when the time is over, or, without a display, when all is done.
/// Threads: the window's.
class Session {
 public:
  /// interrupts counts the signals that ask for an end; the first ends as the user does who closes
  /// the window, the second at once. All must outlive the session.
  Session(qt::Application& application, const HostOptions& options, ErrorLog& log,
          const volatile std::sig_atomic_t& interrupts);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  void Add(std::unique_ptr<SampleSource> source);
  /// A source on show, counted from 0 in the order of Add, until Run returns.
  Channel& At(std::size_t index) { return *channels_.at(index); }
  /// Returns when the run is over. Not twice.
  void Run();
  /// Something was shown.
  bool AnySamples() const { return anySamples_; }

 private:
  /// A picture that is still to be taken.
  struct DuePicture {
    Channel* channel;
    std::string path;
  };

  void addMenus();
  void answerViews();
  /// Null before there is one.
  Channel* current() const;
  /// Carries out a command of the view in front.
  void command(ViewCommand command);
  void takeScheme(int scheme);
  void bringForward(const CSingleGraphView* view);
  /// Readouts of the view in front, in place of any other's.
  void showReadouts();
  void settleReadouts();

  void tick();
  void showStatus();
  void bringForward(int index);
  bool allFinished() const;
  void endFeeds();
  bool mayClose();
  void finish();
  void stagePictures();
  void askForPictures(const std::string& stage);
  void takePictures();
  void endIfDone();

  qt::Application& application_;
  const HostOptions& options_;
  ErrorLog& log_;
  const volatile std::sig_atomic_t& interrupts_;
  const bool hasDisplay_;
  GraphColors colors_;
  HostWindow window_;
  InfoBar infoBar_;
  MainWindow mainWindow_;
  std::vector<std::unique_ptr<Channel>> channels_;  // go before the window
  QTimer timer_;
  QElapsedTimer clock_;
  std::vector<DuePicture> duePictures_;
  std::vector<std::string> pictures_;  // that were taken and not told yet
  int stage_ = 0;
  std::ptrdiff_t settled_ = 0;  // channels behind the one in front
  bool closing_ = false;
  bool finished_ = false;
  bool anySamples_ = false;
};

}  // namespace sparlow::host
