#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <string>

namespace sparlow {

inline constexpr unsigned MB_OK = 0x00;
inline constexpr unsigned MB_ICONHAND = 0x10;
inline constexpr unsigned MB_ICONEXCLAMATION = 0x30;
inline constexpr unsigned MB_ICONMASK = 0xF0;
inline constexpr unsigned MB_TASKMODAL = 0x2000;
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;

/// What a message box shows.
struct BoxRequest {
  std::string text;
  std::string caption;
  unsigned style = MB_OK;
};

/// The one thread that owns the windows, and the message boxes that other threads request of it.
/// Threads: as each operation states.
class UiThread {
 public:
  /// Opens one box and returns the button that closed it.
  using BoxHandler = std::function<int(const BoxRequest&)>;

  /// Makes the calling thread the window's thread. wake is called on any thread when something
  /// waits to be served; it must do no more than bring Serve about on the window's thread.
  static void Attach(std::function<void()> wake);
  /// Ends the attachment; boxes are logged and answered from now on. The window's thread.
  static void Detach();
  /// True on the thread that is attached. Any thread.
  static bool IsCurrent();
  /// Requests a Serve. Any thread.
  static void Wake();

  /// Replaces what opens a box; null: boxes are written to standard error and answered with IDOK,
  /// which is also what happens before any window system is attached. Any thread.
  static void SetBoxHandler(BoxHandler handler);
  /// Opens a box and waits until it is closed. Any thread: from another one than the window's, the
  /// box comes up on the window's thread, also while that waits in a CMutex or WaitServingBoxes.
  static int ShowBox(BoxRequest request);
  /// Opens the boxes that wait, one after the other, unless one is open. The window's thread.
  static void ServeBoxes();
  /// The same while the window's thread waits for something else than its event loop. As long as
  /// such a box is open InWait holds, and nothing but boxes is to be served.
  static void ServeBoxesInWait();
  /// While it lives, a box that can be opened raises it, on whatever thread it is requested.
  /// Threads: the window's.
  class BoxAlarm {
   public:
    BoxAlarm();
    ~BoxAlarm();
    BoxAlarm(const BoxAlarm&) = delete;
    BoxAlarm& operator=(const BoxAlarm&) = delete;
    std::stop_token Raised() const { return raised_.get_token(); }

   private:
    std::stop_source raised_;
    std::stop_source* const outer_;
  };
  static bool InWait();
  /// While it lives, the boxes that the calling thread requests are those of an owner.
  /// Threads: any but the window's.
  class BoxOwner {
   public:
    explicit BoxOwner(const void* owner);
    ~BoxOwner();
    BoxOwner(const BoxOwner&) = delete;
    BoxOwner& operator=(const BoxOwner&) = delete;

   private:
    const void* const outer_;
  };
  /// While it lives, the boxes that an owner's workers request are logged and answered, those that
  /// are open included: the owner waits for its workers. Null: the boxes of everybody's.
  /// Threads: the window's.
  class AnswerBoxes {
   public:
    explicit AnswerBoxes(const void* owner);
    ~AnswerBoxes();
    AnswerBoxes(const AnswerBoxes&) = delete;
    AnswerBoxes& operator=(const AnswerBoxes&) = delete;

   private:
    const void* const owner_;
  };
};

/// Shows text in a box titled with the application's name, and returns the button that closed it.
/// Any thread.
int AfxMessageBox(const char* text, unsigned type = MB_OK, unsigned helpId = 0);

/// The application's name, the title of message boxes. Empty names are allowed. Any thread.
void SetApplicationName(std::string name);
std::string GetApplicationName();

}  // namespace sparlow
