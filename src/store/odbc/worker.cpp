#include "store/odbc/worker.h"

#ifndef _WIN32
#include <locale.h>  // NOLINT(modernize-deprecated-headers): newlocale is not of the standard's
#endif

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

namespace zv::store::odbc {
namespace {

std::atomic<int> abandonedThreads{0};

/// The driver manager converts for drivers without wide functions, into the encoding of the
/// thread's locale.
class Utf8Locale {
#ifndef _WIN32
 public:
    Utf8Locale() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)) {
        if (locale_) uselocale(locale_);
    }
    ~Utf8Locale() {
        uselocale(LC_GLOBAL_LOCALE);
        if (locale_) freelocale(locale_);
    }
    Utf8Locale(const Utf8Locale&) = delete;
    Utf8Locale& operator=(const Utf8Locale&) = delete;

 private:
    locale_t locale_;
#endif
};

}  // namespace

struct Worker::Queue {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> jobs;
    bool ended = false;
    bool abandoned = false;
};

Worker::Worker() : queue_(std::make_shared<Queue>()) {
    thread_ = std::thread([queue = queue_] { Work(queue); });
}

Worker::~Worker() {
    {
        const std::lock_guard lock(queue_->mutex);
        queue_->ended = true;
    }
    queue_->changed.notify_one();
    if (thread_.joinable()) thread_.join();
}

void Worker::Work(const std::shared_ptr<Queue>& queue) {
    [[maybe_unused]] const Utf8Locale locale;
    std::unique_lock lock(queue->mutex);
    while (true) {
        queue->changed.wait(lock, [&] { return queue->ended || !queue->jobs.empty(); });
        if (queue->jobs.empty()) break;
        {
            const std::function<void()> job = std::move(queue->jobs.front());
            queue->jobs.pop_front();
            lock.unlock();
            job();
        }
        lock.lock();
    }
    if (queue->abandoned) abandonedThreads--;
}

void Worker::Post(std::function<void()> job) {
    {
        const std::lock_guard lock(queue_->mutex);
        queue_->jobs.push_back(std::move(job));
    }
    queue_->changed.notify_one();
}

void Worker::Abandon() {
    {
        const std::lock_guard lock(queue_->mutex);
        queue_->ended = true;
        queue_->abandoned = true;
        abandonedThreads++;
    }
    abandoned_ = true;
    thread_.detach();
}

void RunAside(std::function<void()> job) {
    struct Count {
        Count() { abandonedThreads++; }
        ~Count() { abandonedThreads--; }
        Count(const Count&) = delete;
        Count& operator=(const Count&) = delete;
    };
    auto count = std::make_unique<Count>();
    std::thread([job = std::move(job), count = std::move(count)]() mutable {
        try {
            job();
        } catch (...) {
            // Nobody waits for an answer.
        }
        job = nullptr;
    }).detach();
}

int AbandonedThreads() {
    return abandonedThreads;
}

}  // namespace zv::store::odbc
