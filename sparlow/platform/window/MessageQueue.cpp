#include "sparlow/platform/window/MessageQueue.h"

#include <deque>
#include <mutex>

#include "sparlow/platform/base/UiThread.h"
#include "sparlow/platform/window/WindowSite.h"

namespace sparlow {

namespace {

struct PostedMessage {
  HWND window;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
};

struct Queue {
  std::mutex lock;
  std::deque<PostedMessage> messages;
};

// Never destroyed: a detached worker may still post while the process ends.
Queue& queue() {
  static Queue* const instance = new Queue;
  return *instance;
}

bool takeFirst(PostedMessage& message) {
  Queue& q = queue();
  const std::lock_guard guard(q.lock);
  if (q.messages.empty())
    return false;
  message = q.messages.front();
  q.messages.pop_front();
  return true;
}

std::size_t waiting() {
  Queue& q = queue();
  const std::lock_guard guard(q.lock);
  return q.messages.size();
}

}  // namespace

bool MessageQueue::Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!WindowSite::Find(window))
    return false;
  bool first = false;
  {
    Queue& q = queue();
    const std::lock_guard guard(q.lock);
    first = q.messages.empty();
    q.messages.push_back({window, message, wParam, lParam});
  }
  if (first)
    UiThread::Wake();
  return true;
}

void MessageQueue::Drop(HWND window) {
  Queue& q = queue();
  const std::lock_guard guard(q.lock);
  std::erase_if(q.messages, [window](const PostedMessage& m) { return m.window == window; });
}

bool MessageQueue::Serve() {
  UiThread::ServeBoxes();
  PostedMessage message;
  for (std::size_t n = waiting(); n > 0 && takeFirst(message); --n) {
    if (const auto site = WindowSite::Find(message.window))
      site->Send(message.message, message.wParam, message.lParam);
  }
  for (const auto& site : WindowSite::All())
    site->PaintIfDue();
  return waiting() != 0;
}

}  // namespace sparlow
