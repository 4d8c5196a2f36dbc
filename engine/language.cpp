// SPDX-License-Identifier: MIT
#include "engine/language.h"

#include "engine/caption_table.h"
#include "machine/file_utils.h"
#include "text/text.h"
#include "text/unicode.h"

namespace scourwell {
namespace {

constexpr char kSection[] = "Adware Language Pack";
constexpr char kAbout[] = "Language Pack";
constexpr std::size_t kExtension = 4;  // ".ini"
constexpr std::size_t kLongestNumber = 5;
constexpr std::int32_t kFirstCodePage = 437;  // smaller numbers mean "the system's own" in calls

// 0 when the pack states none, or nonsense.
unsigned StatedCodePage(const IniText& pack) {
  const std::string_view text = pack.Find(kAbout, "CodePage").value_or("");
  const bool digits = text.find_first_not_of("0123456789") == text.npos;
  if (!digits || text.size() > kLongestNumber) return 0;
  const std::int32_t number = LeadingNumber(text);
  return number < kFirstCodePage ? 0 : static_cast<unsigned>(number);
}

std::string_view CutCharacters(std::string_view text, std::size_t count) {
  std::size_t end = 0;
  for (std::size_t i = 0; i < count && end < text.size(); ++i) NextCode(text, &end);
  return text.substr(0, end);
}

}  // namespace

std::string Language::SetCaptionfromINI(std::string_view number, std::string_view fallback) const {
  log_.Trap("SetCaptionfromINI", [&] { return Refresh(); });
  const std::string_view text = pack_.Find(kSection, number).value_or(fallback);
  return std::string(TrimBlanks(CutCharacters(TrimNull(text), kLongestCaption)));
}

std::string Language::Text(Caption caption) const {
  return WithLineBreaks(
      SetCaptionfromINI(std::to_string(NumberOf(caption)), DefaultCaption(caption)));
}

std::string Language::Name() const {
  const std::string& file = settings_.LanguageFile;
  return file.substr(0, file.size() - std::min(file.size(), kExtension));
}

std::string Language::StatusText() const { return Text(Caption::LanguageInUse) + " " + Name(); }

Outcome Language::Refresh() const {
  const std::string path =
      AddPathToFileName(AddPathToFileName(application_folder_, "Lang"), settings_.LanguageFile);
  Outcome useless;
  Outcome read = watched_.Refresh(path, {}, [&](std::optional<std::string> content) {
    pack_ = IniText();
    if (content) useless = Load(*content).With("File: ", path);
  });
  if (read.code() == kFileNotFound) return {};  // the defaults serve
  return read.ok() ? std::move(useless) : std::move(read);
}

// A pack whose letters nobody can read is none: the English defaults serve.
Outcome Language::Load(const std::string& content) const {
  const unsigned stated = StatedCodePage(IniText(content));
  const unsigned code_page = stated == 0 ? code_pages_.System() : stated;
  std::string text;
  if (Outcome decoded = code_pages_.Decode(code_page, content, &text); !decoded.ok()) {
    return Outcome::Failed(decoded.code(), "The code page of the language pack is not installed")
        .With("Code page: ", std::to_string(code_page));
  }
  pack_ = IniText(std::move(text));
  if (pack_.section_count() != 0) return {};
  return Outcome::Failed(kPastEndOfFile, "The language pack holds no section");
}

std::string WithLineBreaks(std::string_view message) { return ReplaceAll(message, "#", "\r\n"); }

}  // namespace scourwell
