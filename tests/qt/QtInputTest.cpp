#include <QAbstractScrollArea>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include "tests/qt/QtEnvironment.h"

namespace sparlow::test {
namespace {

struct Told {
  UINT message;
  WPARAM wParam;
  friend bool operator==(const Told&, const Told&) = default;
};
using AllTold = std::vector<Told>;

struct QtInputTest : QtTest {
  QtInputTest() {
    view->onMessage = [this](UINT message, WPARAM wParam) {
      if (message == WM_PAINT || message == WM_SIZE || message == WM_ERASEBKGND)
        return;
      told.push_back({message, wParam});
      if (then)
        then(message, wParam);
    };
  }
  ~QtInputTest() override {
    if (!deleted)
      view->onMessage = nullptr;
  }

  AllTold Heard() { return std::exchange(told, {}); }
  QAbstractScrollArea& Area() { return dynamic_cast<QAbstractScrollArea&>(*qt::WidgetOf(*view)); }
  bool Send(QEvent&& event) {
    return QCoreApplication::sendEvent(&Area(), &event) && event.isAccepted();
  }
  static bool Mouse(QWidget* target, QEvent::Type type, QPointF at, Qt::MouseButton button) {
    const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
    QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
    return QCoreApplication::sendEvent(target, &event) && event.isAccepted();
  }
  bool Mouse(QEvent::Type type, QPointF at = {3, 4}, Qt::MouseButton button = Qt::LeftButton) {
    return Mouse(Area().viewport(), type, at, button);
  }
  bool Move(QPointF at) { return Mouse(QEvent::MouseMove, at, Qt::NoButton); }
  bool Key(QEvent::Type type, int key, quint64 time = 0, bool repeat = false) {
    QKeyEvent event(type, key, Qt::ShiftModifier, QString(), repeat);
    event.setTimestamp(time);
    return Send(std::move(event));
  }
  bool Press(int key, quint64 time = 0) { return Key(QEvent::KeyPress, key, time); }
  bool Release(int key, quint64 time = 0) { return Key(QEvent::KeyRelease, key, time); }

  /// A bar in the middle of a long range, shown.
  QScrollBar& Bar() {
    qt::Resize(*view, 400, 300);
    ShowScrollBar(window, SB_HORZ, true);
    SetScrollInfo(window, SB_HORZ, {0, 5000000, 1000, 200000, 0});
    app->ProcessEvents();
    told.clear();
    return *Area().horizontalScrollBar();
  }
  SCROLLINFO Info() const {
    SCROLLINFO info;
    GetScrollInfo(window, SB_HORZ, &info);
    return info;
  }
  void PressBar(QScrollBar& bar, QStyle::SubControl part) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.maximum = bar.maximum();
    option.pageStep = bar.pageStep();
    option.sliderPosition = bar.sliderPosition();
    const QRect at = bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
    Mouse(&bar, QEvent::MouseButtonPress, at.center(), Qt::LeftButton);
  }

  AllTold told;
  std::function<void(UINT, WPARAM)> then;
};

TEST_F(QtInputTest, MouseEventsArriveAsMessagesWithThePixelThatTheyAreOn) {
  EXPECT_TRUE(Mouse(QEvent::MouseButtonPress));
  EXPECT_TRUE(Mouse(QEvent::MouseButtonRelease));
  EXPECT_TRUE(Mouse(QEvent::MouseButtonDblClick));
  EXPECT_FALSE(Mouse(QEvent::MouseButtonPress, {3, 4}, Qt::MiddleButton));
  EXPECT_EQ(Heard(), (AllTold{{WM_LBUTTONDOWN, 0}, {WM_LBUTTONUP, 0}, {WM_LBUTTONDBLCLK, 0}}));
  const std::pair<QPointF, CPoint> moves[] = {
      {{-0.25, -7}, {-1, -7}}, {{9.75, 5}, {9, 5}}, {{70000, -1e12}, {32767, -32768}}};
  for (const auto& [at, pixel] : moves) {
    Move(at);
    EXPECT_EQ(view->mouseAt, pixel);
  }
  // A shape of the pointer is there until a move that sets none.
  then = [](UINT, WPARAM) { SetCursor(LoadCursor(IDC_SIZEALL)); };
  for (const auto shape : {Qt::SizeAllCursor, Qt::SizeAllCursor, Qt::ArrowCursor}) {
    if (shape == Qt::ArrowCursor)
      then = nullptr;
    Move({5, 5});
    EXPECT_EQ(Area().viewport()->cursor().shape(), shape);
  }
}

TEST_F(QtInputTest, AHeldKeyRepeatsWithoutKeyUp) {
  const Told down{WM_KEYDOWN, VK_LEFT}, up{WM_KEYUP, VK_LEFT};
  short shift = 0;
  then = [&](UINT, WPARAM) { shift = GetKeyState(VK_SHIFT); };
  EXPECT_TRUE(Press(Qt::Key_Left));
  Key(QEvent::KeyRelease, Qt::Key_Left, 0, true);
  Key(QEvent::KeyPress, Qt::Key_Left, 0, true);
  EXPECT_LT(shift, 0);
  Release(Qt::Key_Shift);
  EXPECT_EQ(shift, 0);
  EXPECT_FALSE(Press(Qt::Key_F5)) << "the host's";
  EXPECT_EQ(Heard(), (AllTold{down, down, {WM_KEYUP, VK_SHIFT}}));

  // Without a mark of a repeat, a release and a press of one time are one.
  for (const quint64 time : {600, 640}) {
    Release(Qt::Key_Left, time);
    Press(Qt::Key_Left, time);
  }
  EXPECT_EQ(Heard(), (AllTold{down, down}));
  // Fast fingers: another time, another key, or no press at all.
  Release(Qt::Key_Left, 680);
  Press(Qt::Key_Left, 681);
  EXPECT_EQ(Heard(), (AllTold{up, down}));
  Release(Qt::Key_Left, 700);
  Press(Qt::Key_Right, 700);
  EXPECT_EQ(Heard(), (AllTold{up, {WM_KEYDOWN, VK_RIGHT}}));
  Release(Qt::Key_Right, 720);
  EXPECT_TRUE(told.empty());
  while (told.empty())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(Heard(), (AllTold{{WM_KEYUP, VK_RIGHT}}));
  // Nor is a key down in a window whose keys a menu takes.
  Press(Qt::Key_Left, 780);
  Send(QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason));
  EXPECT_EQ(Heard(), (AllTold{down, up}));
  // The focus doesn't go with a key still down.
  Press(Qt::Key_Left, 800);
  Release(Qt::Key_Left, 820);
  Send(QFocusEvent(QEvent::FocusOut, Qt::MouseFocusReason));
  EXPECT_EQ(Heard()[1], up);
}

TEST_F(QtInputTest, FocusAndActivationAreToldOnceEachAndNotForMenus) {
  Send(QFocusEvent(QEvent::FocusOut, Qt::MouseFocusReason));
  Send(QEvent(QEvent::WindowDeactivate));
  told.clear();
  Send(QFocusEvent(QEvent::FocusIn, Qt::MouseFocusReason));
  Send(QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason));
  Send(QFocusEvent(QEvent::FocusIn, Qt::PopupFocusReason));
  Send(QEvent(QEvent::WindowActivate));
  Send(QEvent(QEvent::WindowActivate));
  Send(QFocusEvent(QEvent::FocusOut, Qt::TabFocusReason));
  EXPECT_EQ(Heard(), (AllTold{{WM_SETFOCUS, 0}, {WM_ACTIVATE, 1}, {WM_KILLFOCUS, 0}}));
}

TEST_F(QtInputTest, AThumbIsTrackedAndTheBarShowsWhatWasSet) {
  QScrollBar& bar = Bar();
  QWheelEvent turn({5, 5}, bar.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(&bar, &turn);
  EXPECT_FALSE(turn.isAccepted()) << "the wheel is the host's";
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
  SetScrollInfo(window, SB_HORZ, {0, 6000000, 1000, 7000000, 0});
  EXPECT_EQ(Info().nPos, bar.maximum());
  EXPECT_TRUE(SetScrollPos(window, SB_HORZ, 333));
  EXPECT_EQ(Info().nPos, 333);
}

TEST_F(QtInputTest, ArrowsAndTroughTellOneStepEachAndRepeatWhileHeld) {
  QScrollBar& bar = Bar();
  const std::pair<QStyle::SubControl, WPARAM> parts[] = {
      {QStyle::SC_ScrollBarSubLine, SB_LINELEFT},
      {QStyle::SC_ScrollBarAddLine, SB_LINERIGHT},
      {QStyle::SC_ScrollBarSubPage, SB_PAGELEFT},
      {QStyle::SC_ScrollBarAddPage, SB_PAGERIGHT}};
  for (const auto& [part, code] : parts) {
    PressBar(bar, part);
    EXPECT_EQ(told, (AllTold{{WM_HSCROLL, code}}));
    while (told.size() < 3)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Mouse(&bar, QEvent::MouseButtonRelease, {}, Qt::LeftButton);
    EXPECT_EQ(bar.sliderPosition(), 200000) << "nobody has set another";
    told.clear();
  }
}

TEST_F(QtInputTest, EachWayOfLosingTheMouseIsToldOnce) {
  const std::function<void()> ways[] = {
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
  };
  for (const auto& lose : ways) {
    view->ShowWindow(true);
    app->ProcessEvents();
    Mouse(QEvent::MouseButtonPress);
    SetCapture(window);
    told.clear();
    lose();
    app->ProcessEvents();
    std::erase_if(told, [](const Told& t) { return t.message != WM_CAPTURECHANGED; });
    EXPECT_EQ(told.size(), 1u) << &lose - ways;
    EXPECT_EQ(GetCapture(), nullptr);
    Mouse(QEvent::MouseButtonRelease);
  }
  view->ShowWindow(true);
  SetCapture(window);
  EXPECT_EQ(QWidget::mouseGrabber(), Area().viewport()) << "without a button that is down";
  ReleaseCapture();
  EXPECT_EQ(QWidget::mouseGrabber(), nullptr);
}

TEST(QtInput, AWindowMayEndInsideEachOfItsMessages) {
  struct Input : QtInputTest {
    void TestBody() override {}
  };
  const std::function<void(Input&, QScrollBar&)> causes[] = {
      [](Input& t, QScrollBar&) { t.Mouse(QEvent::MouseButtonPress); },
      [](Input& t, QScrollBar&) { t.Press(Qt::Key_Left); },
      [](Input& t, QScrollBar&) {
        SetCapture(t.window);
        ReleaseCapture();
      },
      [](Input& t, QScrollBar& bar) { t.PressBar(bar, QStyle::SC_ScrollBarAddLine); },
      [](Input&, QScrollBar& bar) { bar.setSliderDown(true); },
      [](Input& t, QScrollBar&) { ShowScrollBar(t.window, SB_BOTH, false); },
      [](Input& t, QScrollBar&) { qt::Resize(*t.view, 90, 90); },
      [](Input& t, QScrollBar&) { t.Area().resize(20, 20); },
      [](Input& t, QScrollBar&) { RedrawWindow(t.window); },
      [](Input& t, QScrollBar&) { PostMessage(t.window, WM_USER, 0, 0); },
  };
  for (const auto& cause : causes) {
    Input test;
    QScrollBar& bar = test.Bar();
    test.view->onMessage = [&test](UINT, WPARAM) { test.view->DestroyWindow(); };
    cause(test, bar);
    app->ProcessEvents();
    EXPECT_TRUE(test.deleted) << &cause - causes;
    EXPECT_EQ(GetCapture(), nullptr);
  }
}

}  // namespace
}  // namespace sparlow::test
