// The thread every COM object of Korvane lives on. Calls into another process
// are handed to it and waited for with a time limit, so that an application
// that hangs or is stuck in a dialog stops a run with a message instead of
// hanging Korvane. After a call has run over its limit the thread is given up
// (it may stay blocked inside the call) and a fresh one serves new objects.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace korvane::hosts::windows {

class ComApartment : public std::enable_shared_from_this<ComApartment> {
 public:
  ComApartment();
  ~ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

  // The apartment new objects go to: the last one, or a fresh one after a hang.
  static std::shared_ptr<ComApartment> current();

  // Time allowed for one call that is not run until done; 30 s unless set.
  static void setTimeLimit(std::chrono::milliseconds limit);
  static std::chrono::milliseconds timeLimit();

  // Runs `work` on the apartment's thread and waits for it: at most the time
  // limit, or without limit when `untilDone`. Throws AutomationError naming
  // `what` on a timeout or when the apartment was given up; rethrows what
  // `work` throws.
  void run(const std::function<void()>& work, const std::string& what, bool untilDone = false);
  // Runs `work` later on the thread without waiting (releasing an object).
  void post(std::function<void()> work);
  bool givenUp() const;

 private:
  void loop();

  mutable std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<void()>> queue_;
  bool quit_ = false;
  bool givenUp_ = false;
  std::thread thread_;
};

}  // namespace korvane::hosts::windows
