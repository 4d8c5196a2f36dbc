// SPDX-License-Identifier: MIT
#include "results/explanation.h"

#include "scan/finding_texts.h"

namespace scourwell {
namespace {

// In the order of Certainty, and of DefinitionSource.
constexpr Caption kCertainties[] = {Caption::CertaintyPlace,       Caption::CertaintyName,
                                    Caption::CertaintyVersionText, Caption::CertaintyPattern,
                                    Caption::CertaintyPart,        Caption::CertaintyChecksum,
                                    Caption::CertaintyBeside};
constexpr Caption kSources[] = {Caption::SourceBuiltIn, Caption::SourceFile,
                                Caption::SourceSetting};

}  // namespace

std::string Explanation(const Captions& captions, const Finding& finding,
                        const SpyCategories& categories) {
  std::string text = finding.spy + "\r\n" + PlaceText(finding.object) + "\r\n";
  const auto add = [&](Caption caption, const std::string& says) {
    text += "\r\n" + captions.Text(caption) + " " + says;
  };
  const std::string_view category =
      categories.Of(finding.spy, std::holds_alternative<FoundCookie>(finding.object));
  if (!category.empty()) {
    const std::string_view says = categories.TextOf(category);
    add(Caption::WhatCategory,
        std::string(category) + (says.empty() ? "" : ": " + std::string(says)));
  }
  add(Caption::WhatCertainty,
      captions.Text(kCertainties[static_cast<std::size_t>(finding.certainty)]));
  add(Caption::WhatSource, captions.Text(kSources[static_cast<std::size_t>(finding.source)]));
  return text;
}

}  // namespace scourwell
