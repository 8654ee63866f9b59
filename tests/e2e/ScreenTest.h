#pragma once

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QApplication>
#include <QImage>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <future>
#include <iostream>
#include <memory>
#include <vector>

#include "examples/host/Session.h"

namespace sparlow::host {

/// Where graph, cursors and axes of the series on show stand.
struct Shown {
  unsigned size, from, to;
  int left, right;  // samples of the cursors
  double xMin, xMax, yMin, yMax;
  friend bool operator==(const Shown&, const Shown&) = default;
};

/// A test with the host's window on a real screen, and a person in front of it: a thread that moves
/// mouse and keys through the X server, and looks at what that did. The window's thread runs the
/// host as ever, so whatever the person does may stop in a menu or a dialog.
class ScreenTest : public testing::Test {
 protected:
  using Act = std::function<void()>;
  using Sources = std::vector<std::unique_ptr<SampleSource>>;

  /// Shows sources until the person, who begins when there are samples, has closed the window.
  void Run(Sources sources, HostOptions::Job job, const Act& person,
           ViewKind view = ViewKind::single);
  /// The same with files of 10001 samples, when they are read: x from 0 to 10 s, y as they say.
  using Curve = double (*)(double);
  void RunFiles(const std::vector<Curve>& curves, const Act& person,
                ViewKind view = ViewKind::single);
  /// With one, of y = x * x / 10 V.
  void RunKnownFile(const Act& person);

  /// @name For the person
  /// Asks the window's thread, as soon as it takes messages.
  template <class Question>
  auto InHost(const Question& question) {
    auto answer = std::make_shared<std::promise<decltype(question())>>();
    auto result = answer->get_future();
    QMetaObject::invokeMethod(
        qApp, [answer, &question] { answer->set_value(question()); }, Qt::QueuedConnection);
    if (result.wait_for(kDeadline) != std::future_status::ready) {
      std::cout << "[  FAILED  ] the window's thread hangs" << std::endl;
      std::_Exit(EXIT_FAILURE);
    }
    return result.get();
  }
  /// Waits until something holds on the window's thread. Ends the test when it never does.
  void Await(const char* what, const std::function<bool()>& holds);
  /// Waits until all that was to be drawn is drawn, and tells where things stand.
  Shown Settled();
  /// Runs commands of xdotool; returns when the X server has them.
  void Do(const QString& commands);
  /// "mousemove X Y" to a point of the plot by its shares of width and height, from its top left.
  QString To(double right, double down);
  static QString To(QPoint onScreen);
  /// Draws a box from one such point to another.
  void Drag(const QString& from, const QString& to);
  void Close() {
    InHost([this] { return Widget()->window()->close(); });
  }
  /// What the client area of the view shows.
  QImage Pixels() {
    return InHost([this] { return Grab(); });
  }
  /// Keeps a picture of the whole screen.
  void Picture(const QString& name);
  ///@}

  // The window's thread.
  Channel& Source() { return session_->At(0); }
  Pane& Tab() { return session_->PaneAt(0); }
  QAbstractScrollArea* Widget();
  QImage Grab() { return Widget()->viewport()->grab().toImage(); }
  bool Shows(QPoint pixel, COLORREF color) {
    return Grab().pixelColor(pixel) == QColor(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
  }
  QPoint PlotOrigin();
  QSize PlotSize();
  Shown Look();
  QString Label(const char* name);

  static constexpr std::chrono::seconds kDeadline{20};

 private:
  Session* session_ = nullptr;
};

}  // namespace sparlow::host
