#include "sparlow/platform/base/UiThread.h"

#include <algorithm>
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
  const void* owner = nullptr;
  bool answered = false;
  int answer = IDOK;
};

using Boxes = std::deque<std::shared_ptr<PendingBox>>;

/// Everything that is guarded by the one lock of this file.
struct State {
  std::mutex lock;
  std::condition_variable closed;
  std::thread::id uiThread;
  bool attached = false;
  int openBoxes = 0;
  std::vector<const void*> answered;  // owners whose boxes aren't shown; null: everybody's
  std::function<void()> wake;
  std::stop_source* alarm = nullptr;  // of the wait of the window's thread
  UiThread::BoxHandler handler;
  Boxes boxes;
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
thread_local const void* boxOwner = nullptr;

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
  state().closed.notify_all();
}

/// Boxes of that owner aren't shown.
bool isAnswered(const void* owner) {
  const auto& owners = state().answered;
  return std::any_of(owners.begin(), owners.end(),
                     [owner](const void* each) { return !each || each == owner; });
}

/// One box is open at a time, but for those that aren't shown.
bool canOpen(const PendingBox& box) {
  return state().openBoxes == 0 || isAnswered(box.owner);
}

/// The first box that can be opened.
auto nextBox() {
  auto& boxes = state().boxes;
  return std::find_if(boxes.begin(), boxes.end(), [](const auto& box) { return canOpen(*box); });
}

/// Opens a box, outside the lock.
void open(const Boxes::iterator& waiting, std::unique_lock<std::mutex>& guard) {
  State& s = state();
  const std::shared_ptr<PendingBox> box = std::move(*waiting);
  s.boxes.erase(waiting);
  s.openForWorkers.push_back(box);
  ++s.openBoxes;
  const UiThread::BoxHandler handler = isAnswered(box->owner) ? nullptr : s.handler;
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
    open(s.boxes.begin(), guard);
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
  box->owner = boxOwner;
  s.boxes.push_back(box);
  if (s.alarm && canOpen(*box))
    s.alarm->request_stop();
  if (s.wake)
    s.wake();
  s.closed.wait(guard, [&] { return box->answered; });
  return box->answer;
}

void UiThread::ServeBoxes() {
  State& s = state();
  std::unique_lock guard(s.lock);
  for (auto box = nextBox(); box != s.boxes.end(); box = nextBox())
    open(box, guard);
}

void UiThread::ServeBoxesInWait() {
  ++waits;
  ServeBoxes();
  // What was held back meanwhile is due.
  if (--waits == 0)
    Wake();
}

UiThread::BoxAlarm::BoxAlarm() : outer_(state().alarm) {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.alarm = &raised_;
  if (nextBox() != s.boxes.end())
    raised_.request_stop();
}

UiThread::BoxAlarm::~BoxAlarm() {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.alarm = outer_;
}

bool UiThread::InWait() {
  return waits != 0;
}

UiThread::BoxOwner::BoxOwner(const void* owner) : outer_(std::exchange(boxOwner, owner)) {}

UiThread::BoxOwner::~BoxOwner() {
  boxOwner = outer_;
}

UiThread::AnswerBoxes::AnswerBoxes(const void* owner) : owner_(owner) {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.answered.push_back(owner_);
  // A box that is open further out on this thread's stack can't be closed before the wait is over.
  for (const std::shared_ptr<PendingBox>& box : s.openForWorkers) {
    if (isAnswered(box->owner))
      giveAnswer(*box, IDOK);
  }
}

UiThread::AnswerBoxes::~AnswerBoxes() {
  State& s = state();
  const std::lock_guard guard(s.lock);
  s.answered.erase(std::find(s.answered.begin(), s.answered.end(), owner_));
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
