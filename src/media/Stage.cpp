// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/Stage.h"

#include <exception>
#include <new>
#include <utility>

namespace reelsmith::media {

Stage::Stage(FailureLatch& latch, std::function<Result<void>()> work)
    : m_thread([&latch, work = std::move(work)] {
          try {
              if (auto done = work(); !done)
                  latch.fail(done.error());
          } catch (const std::bad_alloc&) {
              latch.fail({ErrorCode::OutOfMemory, "Out of memory"});
          } catch (const std::exception& problem) {
              latch.fail({ErrorCode::Internal, problem.what()});
          }
      }) {}

void Stage::join() {
    if (m_thread.joinable())
        m_thread.join();
}

} // namespace reelsmith::media
