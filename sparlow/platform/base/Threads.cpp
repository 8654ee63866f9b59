#include "sparlow/platform/base/Threads.h"

#include <atomic>

#include <thread>

namespace sparlow {

namespace {

bool startDetached(AFX_THREADPROC proc, void* parameter) {
  try {
    std::thread([proc, parameter] { proc(parameter); }).detach();
    return true;
  } catch (...) {
    // No thread, or no memory for one: the same to the caller.
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
