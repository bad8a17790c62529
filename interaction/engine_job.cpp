#include "interaction/engine_job.h"

namespace qv {

void WindowLayer::StartEngineJob(std::shared_ptr<EngineJob> job) {
  job->work(*job);
  job->finished();
}

}  // namespace qv
