// SPDX-License-Identifier: MIT
#include "results/removal_result.h"

namespace scourwell {
namespace {

struct StateText {
  RemovalState state;
  Caption caption;
};
constexpr StateText kStates[] = {
    {RemovalState::Removed, Caption::StateRemoved},
    {RemovalState::Gone, Caption::StateGone},
    {RemovalState::PendingRestart, Caption::StatePendingRestart},
    {RemovalState::Refused, Caption::StateRefused},
    {RemovalState::Failed, Caption::StateFailed},
};

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
  for (const StateText& each : kStates) {
    if (each.state == state) return captions.Text(each.caption);
  }
  return {};
}

std::string RemovalStateText(const Captions& captions, const RemovalResult& result) {
  std::string text = RemovalStateWord(captions, result.state);
  if (!result.why.ok() && result.state != RemovalState::PendingRestart) {
    text += " (" + result.why.description() + ")";
  }
  return text;
}

}  // namespace scourwell
