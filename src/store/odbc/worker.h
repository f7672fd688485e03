// A thread that does a connection's work, so that its user can stop waiting for it.
#pragma once

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

namespace zv::store::odbc {

/// Runs jobs one after the other on a thread of its own. No call into a driver can be ended from
/// outside, so a job that does not end in time is abandoned together with the thread: both live on
/// until the driver lets go, and nobody waits for them. A job may therefore touch only what it
/// owns.
class Worker {
 public:
    Worker();
    /// Waits for the job under way, unless it was abandoned.
    ~Worker();
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    /// The job's answer; nothing when it took longer than `limit`, and then the worker is
    /// abandoned. `onLate` is called once at `late`, while the job goes on. Rethrows what the job
    /// throws.
    template <class Job>
    auto Run(Job job, std::chrono::milliseconds late, std::chrono::milliseconds limit,
             const std::function<void()>& onLate) {
        using Answer = std::invoke_result_t<Job>;
        auto task = std::make_shared<std::packaged_task<Answer()>>(std::move(job));
        std::future<Answer> answer = task->get_future();
        Post([task] { (*task)(); });
        if (answer.wait_for(late) != std::future_status::ready) {
            if (onLate) onLate();
            if (answer.wait_for(limit - late) != std::future_status::ready) {
                Abandon();
                return std::optional<Answer>();
            }
        }
        return std::optional<Answer>(answer.get());
    }
    bool IsAbandoned() const { return abandoned_; }

 private:
    struct Queue;
    static void Work(const std::shared_ptr<Queue>& queue);
    void Post(std::function<void()> job);
    void Abandon();

    std::shared_ptr<Queue> queue_;
    std::thread thread_;
    bool abandoned_ = false;
};

/// Runs `job` on a thread that nobody waits for.
void RunAside(std::function<void()> job);

/// Threads that were left alone with a driver and are still there. A library that holds this code
/// must not be unloaded while there are any.
int AbandonedThreads();

}  // namespace zv::store::odbc
