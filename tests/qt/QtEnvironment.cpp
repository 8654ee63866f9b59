#include "tests/qt/QtEnvironment.h"

#include <cstdlib>
#include <memory>

#include "sparlow/platform/Windows.h"

namespace sparlow::test {

namespace {

std::unique_ptr<qt::Application> application;

class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override { StartApp(); }
  void TearDown() override { EndApp(); }
};

[[maybe_unused]] const auto* const registered =
    testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace

qt::Application& App() {
  return *application;
}

void EndApp() {
  application.reset();
}

void StartApp() {
  static int argc = 1;
  static char name[] = "/somewhere/qt_tests";
  static char* argv[] = {name, nullptr};
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  application = std::make_unique<qt::Application>(argc, argv);
}

ProbeView* ProbeView::Shown(int width, int height) {
  auto* const view = new ProbeView;
  EXPECT_TRUE(view->Create());
  qt::Resize(*view, width, height);
  view->ShowWindow(true);
  App().ProcessEvents();
  EXPECT_GE(view->draws, 1);
  view->Forget();
  return view;
}

ProbeView::~ProbeView() {
  if (deleted)
    *deleted = true;
}

void ProbeView::Forget() {
  got.clear();
  sizes.clear();
  draws = 0;
}

LRESULT ProbeView::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  got.push_back(message);
  if (message == WM_SIZE) {
    CRect client;
    GetClientRect(GetSafeHwnd(), &client);
    sizes.push_back({client.Width(), client.Height()});
  }
  if (onMessage && message != WM_NCDESTROY) {
    const auto call = onMessage;
    const std::weak_ptr<int> life = life_;
    call(message, wParam);
    if (life.expired())
      return 0;
  }
  return CView::WindowProc(message, wParam, lParam);
}

void ProbeView::OnDraw(CDC* dc) {
  ++draws;
  if (onDraw)
    onDraw(*dc);
}

}  // namespace sparlow::test
