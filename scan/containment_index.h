#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/signature_list.h"
#include "scan/literal_index.h"

namespace scourwell {

// The rows of a list whose signature may stand anywhere inside a text, frozen, so that one look
// at a text decides for all of them. Compared without case.
class ContainmentIndex {
 public:
  // `signature` says which part of a row is looked for. With a `type`, rows of another row text
  // are left out.
  ContainmentIndex(const SignatureList& list, std::string_view SignatureRow::*signature,
                   std::string_view type = {});

  // The first row, in list order, whose signature occurs in `text`.
  std::optional<std::uint32_t> FirstRowIn(std::string_view text) const;

 private:
  LiteralIndex literals_;
  std::vector<std::string> signatures_;
  std::vector<std::uint32_t> rows_;
};

}  // namespace scourwell
