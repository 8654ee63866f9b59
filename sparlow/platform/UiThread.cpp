#include "sparlow/platform/UiThread.h"

#include <atomic>
#include <cstdio>
#include <deque>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

namespace sparlow {

namespace {

struct PendingBox {
  BoxRequest request;
  bool answered = false;
  int answer = IDOK;
};

/// Everything that is guarded by the one lock of this file.
struct State {
  std::mutex lock;
  std::condition_variable answered;
  std::thread::id uiThread;
  bool attached = false;
  int openBoxes = 0;
  int answerSilently = 0;
  std::function<void()> wake;
  UiThread::BoxHandler handler;
  std::deque<std::shared_ptr<PendingBox>> boxes;
  std::vector<std::shared_ptr<PendingBox>> openForWorkers;
  std::string applicationName;
};

// Never destroyed: a detached worker may still ask while the process ends.
State& state() {
  static State* const instance = new State;
  return *instance;
}

/// How many waits of this thread are serving boxes, one inside the other.
thread_local int waits = 0;

int logAndAnswer(const BoxRequest& request) {
  std::fprintf(stderr, "%s: %s\n", request.caption.c_str(), request.text.c_str());
  return IDOK;
}

/// What a box ends with; a handler that fails counts as a box that was closed.
int openBox(const UiThread::BoxHandler& handler, const BoxRequest& request) {
  try {
    return handler ? handler(request) : logAndAnswer(request);
  } catch (...) {
    return IDOK;
  }
}

/// Lets the worker go on that wants the box, unless it has gone on already.
void giveAnswer(PendingBox& box, int answer) {
  if (box.answered)
    return;
  box.answer = answer;
  box.answered = true;
  state().answered.notify_all();
}

/// Opens the box that was asked for first, outside the lock.
void openFront(std::unique_lock<std::mutex>& guard) {
  State& s = state();
  const std::shared_ptr<PendingBox> box = s.boxes.front();
  s.boxes.pop_front();
  s.openForWorkers.push_back(box);
  ++s.openBoxes;
  const UiThread::BoxHandler handler = s.answerSilently > 0 ? nullptr : s.handler;
  guard.unlock();
  const int answer = openBox(handler, box->request);
  guard.lock();
  --s.openBoxes;
  std::erase(s.openForWorkers, box);
  giveAnswer(*box, answer);
}

}  // namespace

void UiThread::Attach(std::function<void()> wake) {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.uiThread = std::this_thread::get_id();
  s.attached = true;
  s.wake = std::move(wake);
}

void UiThread::Detach() {
  State& s = state();
  std::unique_lock guard(s.lock);
  s.attached = false;
  s.wake = nullptr;
  s.handler = nullptr;
  while (!s.boxes.empty())
    openFront(guard);
}

bool UiThread::IsCurrent() {
  State& s = state();
  const std::lock_guard guard(s.lock);
  return s.attached && s.uiThread == std::this_thread::get_id();
}

void UiThread::Wake() {
  State& s = state();
  // Called under the lock, so that Detach can promise that no call comes after it.
  const std::lock_guard guard(s.lock);
  if (s.wake)
    s.wake();
}

void UiThread::SetBoxHandler(BoxHandler handler) {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.handler = std::move(handler);
}

int UiThread::ShowBox(BoxRequest request) {
  State& s = state();
  std::unique_lock guard(s.lock);
  if (!s.attached || s.uiThread == std::this_thread::get_id()) {
    const BoxHandler handler = s.handler;
    ++s.openBoxes;
    guard.unlock();
    const int answer = openBox(handler, request);
    guard.lock();
    // Boxes of workers stood back while this one was open.
    if (--s.openBoxes == 0 && !s.boxes.empty() && s.wake)
      s.wake();
    return answer;
  }
  const auto box = std::make_shared<PendingBox>();
  box->request = std::move(request);
  s.boxes.push_back(box);
  if (s.wake)
    s.wake();
  s.answered.wait(guard, [&] { return box->answered; });
  return box->answer;
}

void UiThread::ServeBoxes() {
  State& s = state();
  std::unique_lock guard(s.lock);
  while ((s.openBoxes == 0 || s.answerSilently > 0) && !s.boxes.empty())
    openFront(guard);
}

void UiThread::ServeBoxesInWait() {
  ++waits;
  ServeBoxes();
  --waits;
}

bool UiThread::InWait() {
  return waits != 0;
}

UiThread::AnswerBoxes::AnswerBoxes() {
  State& s = state();
  const std::lock_guard guard(s.lock);
  ++s.answerSilently;
  // A box that is open further out on this thread's stack can't be closed before the wait is over.
  for (const std::shared_ptr<PendingBox>& box : s.openForWorkers)
    giveAnswer(*box, IDOK);
}

UiThread::AnswerBoxes::~AnswerBoxes() {
  State& s = state();
  const std::lock_guard guard(s.lock);
  --s.answerSilently;
}

int AfxMessageBox(const char* text, unsigned type, unsigned) {
  return UiThread::ShowBox({text ? text : "", GetApplicationName(), type});
}

void SetApplicationName(std::string name) {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.applicationName = std::move(name);
}

std::string GetApplicationName() {
  State& s = state();
  const std::lock_guard guard(s.lock);
  return s.applicationName;
}

}  // namespace sparlow
