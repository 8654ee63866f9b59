#include <QtGlobal>
#include <cstdlib>

#include "bench/Report.h"
#include "bench/Topics.h"

namespace {

void registerAll() {
  using namespace sparlow::bench;
  RegisterFrame();
  RegisterPainting();
  RegisterActions();
  RegisterLive();
}

}  // namespace

int main(int argc, char** argv) {
  // In memory: no other program's drawing counts.
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  // That platform tells each time that it can't grab the mouse.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return sparlow::bench::Main(argc, argv, registerAll);
}
