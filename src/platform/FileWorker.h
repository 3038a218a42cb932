#pragma once

#include <functional>

#include "platform/Status.h"

namespace touchpanel {

/// Runs jobs that wait for a disk one after the other, away from the event loop's thread.
class FileWorker {
 public:
  using Job = std::function<Status()>;
  using Done = std::function<void(Status)>;

  virtual ~FileWorker() = default;
  /// Queues `job`, which runs on the worker's thread and may use only what is safe there. `done` gets its result
  /// from the event loop, never from inside this call. Does not block.
  virtual void post(Job job, Done done) = 0;
  /// Blocks until all jobs have run and been reported, those included that a report has posted.
  virtual void finish() = 0;
};

}  // namespace touchpanel
