// Many pieces of work on several threads, their results in order.
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace talven {

/// Does `work(i)` for i from 0 to `count` on some threads, and hands each result to `take(i, result)` on the calling
/// thread in the order of i. Nothing begins any more once `stops()` is true or `take` has thrown; what has begun ends
/// and is handed over. At most 8 results for each thread wait for their turn. `work` must not throw.
/// Gives the number of results handed over. `idle` is called a few times a second while nothing comes.
template <typename Result>
class WorkInOrder {
 public:
  std::function<Result(std::size_t)> work;
  std::function<void(std::size_t, Result)> take;
  std::function<bool()> stops = [] { return false; };
  std::function<void()> idle = [] {};

  std::size_t Run(std::size_t count, std::size_t threads) {
    count_ = count;
    slots_ = std::vector<std::optional<Result>>(8 * threads);
    std::vector<std::jthread> workers;
    try {
      while (workers.size() < std::min(threads, count)) workers.emplace_back([this] { Work(); });
      while (TakeNext()) {
      }
    } catch (...) {
      Halt();
      throw;
    }
    return taken_;
  }

 private:
  void Work() {
    while (const auto index = Begin()) {
      Result result = work(*index);
      const std::lock_guard lock(mutex_);
      slots_[*index % slots_.size()] = std::move(result);
      changed_.notify_all();
    }
  }

  /// The next piece of work, once there is room for its result; nothing if there is none any more.
  std::optional<std::size_t> Begin() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return is_halted_ || begun_ == count_ || begun_ < taken_ + slots_.size(); });
    if (stops()) is_halted_ = true;
    if (is_halted_ || begun_ == count_) return std::nullopt;
    return begun_++;
  }

  bool TakeNext() {
    std::unique_lock lock(mutex_);
    std::optional<Result>& slot = slots_[taken_ % slots_.size()];
    while (!slot) {
      if (stops()) is_halted_ = true;
      if (taken_ == (is_halted_ ? begun_ : count_)) {
        changed_.notify_all();
        return false;
      }
      if (changed_.wait_for(lock, std::chrono::milliseconds(200)) == std::cv_status::timeout) idle();
    }
    Result result = *std::move(slot);
    slot.reset();
    const std::size_t index = taken_;
    lock.unlock();
    take(index, std::move(result));
    lock.lock();
    ++taken_;
    changed_.notify_all();
    return true;
  }

  void Halt() {
    const std::lock_guard lock(mutex_);
    is_halted_ = true;
    changed_.notify_all();
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::vector<std::optional<Result>> slots_;
  std::size_t count_ = 0;
  std::size_t begun_ = 0;
  std::size_t taken_ = 0;
  bool is_halted_ = false;
};

}  // namespace talven
