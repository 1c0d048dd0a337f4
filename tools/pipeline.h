// Blocks of records worked at on several threads and finished in their order.
#pragma once

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace iocv::tool {

// Gives each block that `reader.next(block)` fills to a worker and then to `finish`. Each worker
// has a thread of its own, the last one the caller's, and works at one block at a time; so memory
// is that of one block a worker. `work(worker, block)` runs on all threads at once, `finish(worker,
// block)` on one at a time and in the order of the file; false from it ends the run. What any of
// them throws ends the run and comes out here.
template <class Reader, class Worker, class Work, class Finish>
class Pipeline {
 public:
  using Block = typename Reader::BlockType;

  Pipeline(Reader& reader, std::vector<Worker>& workers, Work work, Finish finish)
      : reader_(reader), workers_(workers), work_(std::move(work)), finish_(std::move(finish)) {}

  void run() {
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i + 1 < workers_.size(); ++i) {
      threads.emplace_back([this, i] { serve(workers_[i]); });
    }
    serve(workers_.back());
    threads.clear();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void serve(Worker& worker) noexcept {
    Block block;
    try {
      for (std::int64_t ticket = take(block); ticket >= 0; ticket = take(block)) {
        work_(worker, block);
        finish_in_turn(worker, block, ticket);
      }
    } catch (...) {
      const std::scoped_lock lock(order_);
      if (!failure_) failure_ = std::current_exception();
      stopped_ = true;
      turn_changed_.notify_all();
    }
  }

  // The place of the next block in the order; -1 when there is none.
  std::int64_t take(Block& block) {
    const std::scoped_lock lock(input_);
    {
      const std::scoped_lock order(order_);
      if (stopped_) return -1;
    }
    if (at_end_) return -1;
    at_end_ = !reader_.next(block);
    return at_end_ ? -1 : tickets_++;
  }

  void finish_in_turn(Worker& worker, const Block& block, std::int64_t ticket) {
    std::unique_lock lock(order_);
    turn_changed_.wait(lock, [&] { return stopped_ || turn_ == ticket; });
    if (stopped_) return;
    lock.unlock();  // nobody else's turn comes before this one is over
    const bool go_on = finish_(worker, block);
    lock.lock();
    ++turn_;
    stopped_ = stopped_ || !go_on;
    turn_changed_.notify_all();
  }

  Reader& reader_;
  std::vector<Worker>& workers_;
  Work work_;
  Finish finish_;

  std::mutex input_;  // reader_, at_end_ and tickets_
  bool at_end_ = false;
  std::int64_t tickets_ = 0;

  std::mutex order_;  // all below
  std::condition_variable turn_changed_;
  std::int64_t turn_ = 0;
  bool stopped_ = false;
  std::exception_ptr failure_;
};

}  // namespace iocv::tool
