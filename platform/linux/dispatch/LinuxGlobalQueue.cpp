#include "platform/linux/dispatch/LinuxGlobalQueue.h"

#include <utility>

namespace talmo {

LinuxGlobalQueue::LinuxGlobalQueue(std::string label, LinuxWorkerPool& pool,
                                   LinuxDelayedWork& delayed)
    : label_(std::move(label)), pool_(pool), delayed_(delayed) {}

void LinuxGlobalQueue::async(std::function<void()> work) {
  pool_.submit(std::move(work));
}

void LinuxGlobalQueue::asyncAfter(Duration delay, std::function<void()> work) {
  delayed_.schedule(LinuxDelayedWork::after(delay),
                    [this, work = std::move(work)]() mutable { async(std::move(work)); });
}

}  // namespace talmo
