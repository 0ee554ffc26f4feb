#include "hosts/automation/windows/com_apartment.h"

// windows.h first: the other Windows headers build on it.
// clang-format off
#include <windows.h>
#include <objbase.h>
// clang-format on

#include <atomic>
#include <cstdio>

#include "hosts/automation.h"

namespace korvane::hosts::windows {
namespace {

std::atomic<long long> g_limitMs{30000};
std::mutex g_currentMutex;
// Never destroyed: at the end of the process the thread is ended with it,
// without a CoUninitialize that could wait for an application.
std::shared_ptr<ComApartment>& g_current = *new std::shared_ptr<ComApartment>;

struct Completion {
  std::mutex mutex;
  std::condition_variable done;
  bool finished = false;
  std::exception_ptr error;
};

}  // namespace

ComApartment::ComApartment() : thread_([this] { loop(); }) {}

ComApartment::~ComApartment() {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    quit_ = true;
  }
  wake_.notify_all();
  if (givenUp())
    thread_.detach();  // it may never come back from the call it is in
  else
    thread_.join();
}

std::shared_ptr<ComApartment> ComApartment::current() {
  std::lock_guard<std::mutex> lock(g_currentMutex);
  if (!g_current || g_current->givenUp()) g_current = std::make_shared<ComApartment>();
  return g_current;
}

void ComApartment::setTimeLimit(std::chrono::milliseconds limit) { g_limitMs = limit.count(); }
std::chrono::milliseconds ComApartment::timeLimit() {
  return std::chrono::milliseconds(g_limitMs.load());
}

bool ComApartment::givenUp() const {
  std::lock_guard<std::mutex> lock(mutex_);
  return givenUp_;
}

void ComApartment::loop() {
  // A multithreaded apartment: calls need no message loop here, and the
  // objects may be released from any task.
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  for (;;) {
    std::function<void()> work;
    {
      std::unique_lock<std::mutex> lock(mutex_);
      wake_.wait(lock, [this] { return quit_ || !queue_.empty(); });
      if (queue_.empty()) break;
      work = std::move(queue_.front());
      queue_.pop_front();
    }
    work();
  }
  CoUninitialize();
}

void ComApartment::post(std::function<void()> work) {
  {
    std::lock_guard<std::mutex> lock(mutex_);
    if (givenUp_ || quit_) return;
    queue_.push_back(std::move(work));
  }
  wake_.notify_all();
}

void ComApartment::run(const std::function<void()>& work, const std::string& what, bool untilDone) {
  if (givenUp()) throw AutomationError(AutomationError::Reason::NoAnswer, what, "");
  auto completion = std::make_shared<Completion>();
  post([work, completion] {
    std::exception_ptr error;
    try {
      work();
    } catch (...) {
      error = std::current_exception();
    }
    std::lock_guard<std::mutex> lock(completion->mutex);
    completion->error = error;
    completion->finished = true;
    completion->done.notify_all();
  });
  std::unique_lock<std::mutex> lock(completion->mutex);
  if (untilDone) {
    completion->done.wait(lock, [&] { return completion->finished; });
  } else if (!completion->done.wait_for(lock, timeLimit(), [&] { return completion->finished; })) {
    {
      std::lock_guard<std::mutex> own(mutex_);
      givenUp_ = true;
    }
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%g", timeLimit().count() / 1000.0);
    throw AutomationError(AutomationError::Reason::NoAnswer, what, seconds);
  }
  if (completion->error) std::rethrow_exception(completion->error);
}

}  // namespace korvane::hosts::windows
