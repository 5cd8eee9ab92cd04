// Large working data that jobs in several threads use one after the other.
#pragma once

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace talven {

/// Hands out objects that nobody else uses, and takes them back: to make such an object for each job would take longer
/// than many jobs do.
template <typename Workspace>
class WorkspacePool {
 public:
  /// Does something with an object of the pool and gives what that gives.
  template <typename Use>
  auto With(Use use) {
    std::unique_ptr<Workspace> workspace = Take();
    const Return on_leaving{*this, workspace};
    return use(*workspace);
  }

 private:
  struct Return {
    WorkspacePool& pool;
    std::unique_ptr<Workspace>& workspace;
    ~Return() {
      const std::lock_guard lock(pool.mutex_);
      pool.free_.push_back(std::move(workspace));
    }
  };

  std::unique_ptr<Workspace> Take() {
    const std::lock_guard lock(mutex_);
    if (free_.empty()) return std::make_unique<Workspace>();
    std::unique_ptr<Workspace> workspace = std::move(free_.back());
    free_.pop_back();
    return workspace;
  }

  std::mutex mutex_;
  std::vector<std::unique_ptr<Workspace>> free_;
};

}  // namespace talven
