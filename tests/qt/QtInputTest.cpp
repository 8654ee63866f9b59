#include <QAbstractScrollArea>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <chrono>
#include <limits>
#include <thread>

#include "sparlow/platform/Input.h"
#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

struct Told {
  UINT message;
  WPARAM wParam;
  friend bool operator==(const Told&, const Told&) = default;
};

class QtInputTest : public QtTest {
 protected:
  QtInputTest() {
    view->onMessage = [this](UINT message, WPARAM wParam) {
      if (message == WM_PAINT || message == WM_SIZE || message == WM_ERASEBKGND)
        return;
      told.push_back({message, wParam});
      if (then)
        then(message, wParam);
    };
    told.clear();
  }
  ~QtInputTest() override {
    if (!deleted)
      view->onMessage = nullptr;
  }

  QAbstractScrollArea& Area() { return dynamic_cast<QAbstractScrollArea&>(*qt::WidgetOf(*view)); }
  bool Mouse(QWidget* target, QEvent::Type type, QPointF at, Qt::MouseButton button,
             Qt::MouseButtons held) {
    QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
    return QCoreApplication::sendEvent(target, &event) && event.isAccepted();
  }
  bool Mouse(QEvent::Type type, QPointF at, Qt::MouseButton button = Qt::NoButton) {
    return Mouse(Area().viewport(), type, at, button,
                 type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::MouseButtons(button));
  }
  bool Key(QEvent::Type type, int key, bool repeat = false, quint64 time = 0) {
    QKeyEvent event(type, key, Qt::ShiftModifier, QString(), repeat);
    event.setTimestamp(time);
    return QCoreApplication::sendEvent(&Area(), &event) && event.isAccepted();
  }
  /// A bar in the middle of a long range, shown.
  QScrollBar& Bar(int nMax = 5000000, unsigned nPage = 1000, int nPos = 200000) {
    qt::Resize(*view, 400, 300);
    ShowScrollBar(window, SB_HORZ, true);
    SetScrollInfo(window, SB_HORZ, {0, nMax, nPage, nPos, 0});
    app->ProcessEvents();
    told.clear();
    return *Area().horizontalScrollBar();
  }
  SCROLLINFO Info() const {
    SCROLLINFO info;
    GetScrollInfo(window, SB_HORZ, &info);
    return info;
  }
  static QPointF PlaceOf(QScrollBar& bar, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.sliderPosition = bar.sliderPosition();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar).center();
  }

  std::vector<Told> told;
  std::function<void(UINT, WPARAM)> then;
};

TEST_F(QtInputTest, MouseEventsArriveAsMessagesWithThePixelThatTheyAreOn) {
  EXPECT_TRUE(Mouse(QEvent::MouseMove, {3, 4}));
  EXPECT_TRUE(Mouse(QEvent::MouseButtonPress, {3, 4}, Qt::LeftButton));
  EXPECT_TRUE(Mouse(QEvent::MouseButtonRelease, {3, 4}, Qt::LeftButton));
  EXPECT_TRUE(Mouse(QEvent::MouseButtonDblClick, {3, 4}, Qt::LeftButton));
  EXPECT_TRUE(Mouse(QEvent::MouseButtonPress, {3, 4}, Qt::RightButton));
  EXPECT_FALSE(Mouse(QEvent::MouseButtonPress, {3, 4}, Qt::MiddleButton));
  EXPECT_EQ(told, (std::vector<Told>{{WM_MOUSEMOVE, 0},
                                     {WM_LBUTTONDOWN, 0},
                                     {WM_LBUTTONUP, 0},
                                     {WM_LBUTTONDBLCLK, 0},
                                     {WM_RBUTTONDOWN, 0}}));
  EXPECT_TRUE(Area().viewport()->hasMouseTracking());

  struct Listener : CView {
    std::vector<CPoint> points;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
      if (message == WM_MOUSEMOVE)
        points.push_back(PointOf(lParam));
      return CView::WindowProc(message, wParam, lParam);
    }
    void OnDraw(CDC*) override {}
  };
  auto* const listener = new Listener;
  ASSERT_TRUE(listener->Create());
  QWidget* const client = dynamic_cast<QAbstractScrollArea&>(*qt::WidgetOf(*listener)).viewport();
  for (const QPointF at : {QPointF(-0.25, -7), QPointF(9.75, 5), QPointF(70000, -1e12)})
    Mouse(client, QEvent::MouseMove, at, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(listener->points, (std::vector<CPoint>{{-1, -7}, {9, 5}, {32767, -32768}}));
  CPoint point{5, 6};
  ClientToScreen(listener->GetSafeHwnd(), &point);
  ScreenToClient(listener->GetSafeHwnd(), &point);
  EXPECT_EQ(point, (CPoint{5, 6}));
  listener->DestroyWindow();
}

TEST_F(QtInputTest, AHeldKeyRepeatsWithoutKeyUp) {
  short shift = 0;
  then = [&](UINT, WPARAM) { shift = GetKeyState(VK_SHIFT); };
  EXPECT_TRUE(Key(QEvent::KeyPress, Qt::Key_Left));
  Key(QEvent::KeyRelease, Qt::Key_Left, true);
  Key(QEvent::KeyPress, Qt::Key_Left, true);
  Key(QEvent::KeyRelease, Qt::Key_Left);
  EXPECT_LT(shift, 0);
  Key(QEvent::KeyRelease, Qt::Key_Shift);
  EXPECT_EQ(shift, 0);
  EXPECT_FALSE(Key(QEvent::KeyPress, Qt::Key_F5)) << "the host's";
  EXPECT_EQ(told, (std::vector<Told>{{WM_KEYDOWN, VK_LEFT},
                                     {WM_KEYDOWN, VK_LEFT},
                                     {WM_KEYUP, VK_LEFT},
                                     {WM_KEYUP, VK_SHIFT}}));
}

TEST_F(QtInputTest, AReleaseAndAPressOfOneTimeAreARepeat) {
  const auto stroke = [this](QEvent::Type type, int key, quint64 time) {
    Key(type, key, false, time);
  };
  const auto messages = [this] { return std::exchange(told, {}); };
  stroke(QEvent::KeyPress, Qt::Key_Left, 100);
  for (const quint64 time : {600, 640}) {
    stroke(QEvent::KeyRelease, Qt::Key_Left, time);
    stroke(QEvent::KeyPress, Qt::Key_Left, time);
  }
  const Told down{WM_KEYDOWN, VK_LEFT}, up{WM_KEYUP, VK_LEFT};
  EXPECT_EQ(messages(), (std::vector<Told>{down, down, down}));
  // Fast fingers: another time, another key, or no press at all.
  stroke(QEvent::KeyRelease, Qt::Key_Left, 680);
  stroke(QEvent::KeyPress, Qt::Key_Left, 681);
  EXPECT_EQ(messages(), (std::vector<Told>{up, down}));
  stroke(QEvent::KeyRelease, Qt::Key_Left, 700);
  stroke(QEvent::KeyPress, Qt::Key_Right, 700);
  EXPECT_EQ(messages(), (std::vector<Told>{up, {WM_KEYDOWN, VK_RIGHT}}));
  stroke(QEvent::KeyRelease, Qt::Key_Right, 720);
  EXPECT_TRUE(told.empty());
  while (told.empty())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(messages(), (std::vector<Told>{{WM_KEYUP, VK_RIGHT}}));
  // The focus doesn't go with a key still down.
  stroke(QEvent::KeyPress, Qt::Key_Left, 800);
  stroke(QEvent::KeyRelease, Qt::Key_Left, 820);
  QFocusEvent away(QEvent::FocusOut, Qt::MouseFocusReason);
  QCoreApplication::sendEvent(&Area(), &away);
  EXPECT_EQ(messages()[1], up);
}

TEST_F(QtInputTest, FocusAndActivationAreToldOnceEachAndNotForMenus) {
  const auto send = [&](auto event) { QCoreApplication::sendEvent(&Area(), &event); };
  send(QFocusEvent(QEvent::FocusOut, Qt::MouseFocusReason));
  send(QEvent(QEvent::WindowDeactivate));
  told.clear();
  send(QFocusEvent(QEvent::FocusIn, Qt::MouseFocusReason));
  send(QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason));
  send(QFocusEvent(QEvent::FocusIn, Qt::PopupFocusReason));
  send(QEvent(QEvent::WindowActivate));
  send(QEvent(QEvent::WindowActivate));
  send(QFocusEvent(QEvent::FocusOut, Qt::TabFocusReason));
  EXPECT_EQ(told, (std::vector<Told>{{WM_SETFOCUS, 0}, {WM_ACTIVATE, 1}, {WM_KILLFOCUS, 0}}));
}

TEST_F(QtInputTest, TheWheelIsLeftToTheHost) {
  for (QWidget* const target : {Area().viewport(), static_cast<QWidget*>(&Bar())}) {
    QWheelEvent event({5, 5}, target->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(target, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(Info().nPos, 200000);
  }
}

TEST_F(QtInputTest, AThumbIsTrackedAndTheBarShowsWhatWasSet) {
  QScrollBar& bar = Bar();
  EXPECT_EQ(bar.maximum(), 5000000 - 1000 + 1);
  std::vector<std::pair<int, int>> tracks;
  then = [&](UINT, WPARAM) { tracks.emplace_back(Info().nPos, Info().nTrackPos); };
  bar.setSliderDown(true);
  bar.setSliderPosition(3000000);
  SetScrollInfo(window, SB_HORZ, {0, 6000000, 1000, 222, 0});
  EXPECT_EQ(bar.sliderPosition(), 3000000) << "stays under the mouse";
  bar.setSliderPosition(3000001);
  bar.setSliderDown(false);
  const WPARAM low = 3000001 & 0xFFFF;
  EXPECT_EQ(told.back(), (Told{WM_HSCROLL, SB_THUMBPOSITION | low << 16}));
  EXPECT_EQ(tracks, (std::vector<std::pair<int, int>>{
                        {200000, 200000}, {200000, 3000000}, {222, 3000001}, {222, 3000001}}));
  EXPECT_EQ(bar.value(), 222);
  EXPECT_EQ(bar.maximum(), 6000000 - 1000 + 1);
  EXPECT_EQ(Info().nTrackPos, 222);

  then = [&](UINT, WPARAM) { SetScrollPos(window, SB_HORZ, 4444); };
  bar.setSliderDown(true);
  bar.setSliderDown(false);
  EXPECT_EQ(bar.value(), 4444);
  told.clear();
  bar.setSliderDown(true);
  ShowScrollBar(window, SB_HORZ, false);
  EXPECT_EQ(told, (std::vector<Told>{{WM_HSCROLL, SB_THUMBTRACK | WPARAM{4444} << 16}}));
  constexpr int most = std::numeric_limits<int>::max();
  SetScrollInfo(window, SB_HORZ, {-most, most, 4000000000u, most, 0});
  EXPECT_EQ(Info().nPos, most - 4000000000 + 1);
  SetScrollInfo(window, SB_HORZ, {5, 1, 9, 7, 0});
  EXPECT_EQ(Info(), (SCROLLINFO{5, 5, 1, 5, 5}));
}

TEST_F(QtInputTest, ArrowsAndTroughTellOneStepEachAndRepeatWhileHeld) {
  QScrollBar& bar = Bar(100, 10, 50);
  const std::pair<QStyle::SubControl, WPARAM> parts[] = {
      {QStyle::SC_ScrollBarSubLine, SB_LINELEFT},
      {QStyle::SC_ScrollBarAddLine, SB_LINERIGHT},
      {QStyle::SC_ScrollBarSubPage, SB_PAGELEFT},
      {QStyle::SC_ScrollBarAddPage, SB_PAGERIGHT}};
  for (const auto& [part, code] : parts) {
    told.clear();
    const QPointF at = PlaceOf(bar, part);
    Mouse(&bar, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(told, (std::vector<Told>{{WM_HSCROLL, code}}));
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (told.size() < 3 && std::chrono::steady_clock::now() < end) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
      app->ProcessEvents();
    }
    EXPECT_GE(told.size(), 3u) << code;
    Mouse(&bar, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(bar.value(), 50) << "nobody has set another";
    EXPECT_EQ(bar.sliderPosition(), 50);
  }
}

TEST_F(QtInputTest, EachWayOfLosingTheMouseIsToldOnce) {
  SetCapture(window);
  ReleaseCapture();
  EXPECT_EQ(told, (std::vector<Told>{{WM_CAPTURECHANGED, 0}})) << "inside the call";
  const std::function<void()> ways[] = {
      [] {
        QWidget popup(nullptr, Qt::Popup);
        popup.show();
        app->ProcessEvents();
      },
      [] {
        QDialog dialog;
        dialog.open();
        app->ProcessEvents();
      },
      [this] { view->ShowWindow(false); },
      [this] {
        QEvent event(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(Area().window(), &event);
      },
      [this] { Area().setEnabled(false); },
  };
  for (const auto& lose : ways) {
    Area().setEnabled(true);
    view->ShowWindow(true);
    app->ProcessEvents();
    Mouse(QEvent::MouseButtonPress, {3, 4}, Qt::LeftButton);
    SetCapture(window);
    told.clear();
    lose();
    app->ProcessEvents();
    std::erase_if(told, [](const Told& t) { return t.message != WM_CAPTURECHANGED; });
    EXPECT_EQ(told.size(), 1u) << &lose - ways;
    EXPECT_EQ(GetCapture(), nullptr);
    Mouse(QEvent::MouseButtonRelease, {3, 4}, Qt::LeftButton);
  }
}

TEST_F(QtInputTest, AShapeOfThePointerLastsUntilTheMouseMovesOn) {
  const auto shape = [this] { return Area().viewport()->cursor().shape(); };
  bool set = true;
  then = [&](UINT message, WPARAM) {
    if (set && message == WM_MOUSEMOVE)
      SetCursor(LoadCursor(IDC_SIZEALL));
  };
  Mouse(QEvent::MouseMove, {3, 4});
  EXPECT_EQ(shape(), Qt::SizeAllCursor);
  set = false;
  SetCapture(window);
  Mouse(QEvent::MouseMove, {4, 4});
  EXPECT_EQ(shape(), Qt::SizeAllCursor) << "who has the mouse has its shape too";
  ReleaseCapture();
  Mouse(QEvent::MouseMove, {5, 4});
  EXPECT_EQ(shape(), Qt::ArrowCursor);
}

/// The fixture as something that a test makes for itself, several times.
struct Ending : QtInputTest {
  using QtInputTest::Bar;
  using QtInputTest::deleted;
  using QtInputTest::Key;
  using QtInputTest::Mouse;
  using QtInputTest::PlaceOf;
  using QtInputTest::then;
  using QtInputTest::view;
  using QtInputTest::window;
  void TestBody() override {}
};

TEST_F(QtInputTest, AWindowMayEndInsideEachOfItsInputs) {
  const std::function<void(Ending&)> inputs[] = {
      [](Ending& t) {
        t.Mouse(QEvent::MouseButtonPress, {3, 4}, Qt::LeftButton);
      },
      [](Ending& t) {
        t.Mouse(QEvent::MouseMove, {3, 4});
      },
      [](Ending& t) { t.Key(QEvent::KeyPress, Qt::Key_Left); },
      [](Ending& t) {
        SetCapture(t.window);
        ReleaseCapture();
      },
      [](Ending& t) {
        QScrollBar& bar = t.Bar(100, 10, 50);
        t.then = [&t](UINT, WPARAM) { t.view->DestroyWindow(); };
        t.Mouse(&bar, QEvent::MouseButtonPress, Ending::PlaceOf(bar, QStyle::SC_ScrollBarAddLine),
                Qt::LeftButton, Qt::LeftButton);
      },
      [](Ending& t) {
        QScrollBar& bar = t.Bar();
        bar.setSliderDown(true);
        t.then = [&t](UINT, WPARAM) { t.view->DestroyWindow(); };
        bar.setSliderDown(false);
      },
  };
  for (const auto& input : inputs) {
    Ending test;
    if (&input - inputs < 4)
      test.then = [&test](UINT, WPARAM) { test.view->DestroyWindow(); };
    input(test);
    app->ProcessEvents();
    EXPECT_TRUE(test.deleted) << &input - inputs;
    EXPECT_EQ(GetCapture(), nullptr);
  }
}

}  // namespace
}  // namespace sparlow::test
