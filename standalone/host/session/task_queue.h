#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

/// Work for one thread, put in by any. What is done before a task is put in has happened for the task.
class TaskQueue {
 public:
  using Task = std::function<void()>;

  void put(Task task) {
    {
      const std::lock_guard lock(mutex);
      tasks.push_back(std::move(task));
    }
    filled.notify_one();
  }
  /// Waits until there is one.
  Task take() {
    std::unique_lock lock(mutex);
    filled.wait(lock, [this] { return !tasks.empty(); });
    Task task = std::move(tasks.front());
    tasks.pop_front();
    return task;
  }

 private:
  std::mutex mutex;
  std::condition_variable filled;
  std::deque<Task> tasks;
};
