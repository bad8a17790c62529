#include "interaction/engine_worker.h"

#include "core/fatal.h"

namespace qv {

EngineWorker::~EngineWorker() {
  if (!Busy()) return;
  Cancel();
  thread_.join();
}

void EngineWorker::Start(const Game& g, EngineJob job, std::function<void()> done) {
  if (Busy()) throw FatalError("Fatal Error! Quorvanis will exit.");
  work_ = std::make_unique<Game>(g);
  work_->StopRequest = 0;
  result_ = nullptr;
  fatal_.clear();
  thread_ = std::thread([this, job = std::move(job), done = std::move(done)] {
    try {
      result_ = job(*work_, live);
    } catch (const FatalError& e) {
      fatal_ = e.what();
    } catch (const std::exception&) {
      fatal_ = "Fatal Error! Quorvanis will exit.";
    }
    if (done) done();
  });
}

void EngineWorker::Cancel() {
  if (work_) work_->StopRequest = 1;
}

ApplyOnWindow EngineWorker::Collect(std::string& fatal) {
  if (thread_.joinable()) thread_.join();
  work_.reset();
  fatal = fatal_;
  return std::move(result_);
}

}  // namespace qv
