// SPDX-License-Identifier: MIT
#include "results/removal_result.h"

#include "machine/counting.h"
#include "machine/reasons.h"

namespace scourwell {
namespace {

// In the order of RemovalState.
constexpr Caption kStates[] = {Caption::StateRemoved, Caption::StateGone,
                               Caption::StatePendingRestart, Caption::StateRefused,
                               Caption::StateFailed};

Caption CaptionOf(RemovalState state) { return kStates[static_cast<std::size_t>(state)]; }

}  // namespace

int RankOf(const std::optional<RemovalResult>& result) {
  if (!result) return 3;
  switch (result->state) {
    case RemovalState::Failed:
      return 0;
    case RemovalState::Refused:
      return 1;
    case RemovalState::PendingRestart:
      return 2;
    case RemovalState::Removed:
      return 4;
    default:
      return 5;
  }
}

std::string RemovalStateWord(const Captions& captions, RemovalState state) {
  return FormFor(captions, 1, CaptionOf(state));
}

std::string RemovalStateCount(const Captions& captions, RemovalState state, std::size_t count) {
  return CountedText(captions, count, CaptionOf(state));
}

std::string RemovalStateText(const Captions& captions, const RemovalResult& result) {
  std::string text = RemovalStateWord(captions, result.state);
  if (!result.why.ok() && result.state != RemovalState::PendingRestart) {
    text += " (" + ReasonText(captions, result.why) + ")";
  }
  return text;
}

}  // namespace scourwell
