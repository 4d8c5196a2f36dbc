// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "platform/outcome.h"
#include "text/captions.h"

namespace scourwell {

enum class RemovalState {
  Removed,
  Gone,            // was not there any more
  PendingRestart,  // in use; Windows takes it away at its next start
  Refused,         // protected
  Failed,
};

struct RemovalResult {
  RemovalState state = RemovalState::Removed;
  Outcome why;  // of a refusal or failure

  bool done() const { return state == RemovalState::Removed || state == RemovalState::Gone; }
};

// The place in an order in which what is still there comes first and what needs no look comes last.
inline constexpr int kRanks = 6;
int RankOf(const std::optional<RemovalResult>& result);

// "removed", "refused" and so on.
std::string RemovalStateWord(const Captions& captions, RemovalState state);
// "3 removed"
std::string RemovalStateCount(const Captions& captions, RemovalState state, std::size_t count);
// The same with its reason: "refused (It is protected: ...)".
std::string RemovalStateText(const Captions& captions, const RemovalResult& result);

}  // namespace scourwell
