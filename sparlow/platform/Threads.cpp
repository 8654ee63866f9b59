#include "sparlow/platform/Threads.h"

#include <atomic>
#include <system_error>
#include <thread>

namespace sparlow {

namespace {

bool startDetached(AFX_THREADPROC proc, void* parameter) {
  try {
    std::thread([proc, parameter] { proc(parameter); }).detach();
    return true;
  } catch (const std::system_error&) {
    return false;
  }
}

std::atomic<ThreadStarter> starter{startDetached};

}  // namespace

bool AfxBeginThread(AFX_THREADPROC proc, void* parameter) {
  return starter.load()(proc, parameter);
}

void SetThreadStarter(ThreadStarter replacement) {
  starter.store(replacement ? replacement : startDetached);
}

}  // namespace sparlow
