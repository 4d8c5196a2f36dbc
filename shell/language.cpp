#include "shell/language.h"

#include "platform/file_utils.h"
#include "platform/text.h"
#include "shell/caption_table.h"

namespace scourwell {
namespace {

constexpr char kSection[] = "Adware Language Pack";
constexpr std::size_t kExtension = 4;  // ".ini"

}  // namespace

std::string Language::SetCaptionfromINI(std::string_view number, std::string_view fallback) const {
  static_cast<void>(log_.Trap("SetCaptionfromINI", [&] { return Refresh(); }));
  const std::string_view text = pack_.Find(kSection, number).value_or(fallback);
  return std::string(TrimBlanks(TrimNull(text).substr(0, kLongestCaption)));
}

std::string Language::Text(int number) const {
  return SetCaptionfromINI(std::to_string(number), DefaultCaption(number));
}

std::string Language::StatusText() const {
  const std::string& file = settings_.LanguageFile;
  const std::string name = file.substr(0, file.size() - std::min(file.size(), kExtension));
  return SetCaptionfromINI("1743", "Language:") + " " + name;
}

Outcome Language::Refresh() const {
  const std::string path =
      AddPathToFileName(AddPathToFileName(application_folder_, "Lang"), settings_.LanguageFile);
  Outcome useless;
  Outcome read = watched_.Refresh(path, {}, [&](std::optional<std::string> content) {
    pack_ = content ? IniText(std::move(*content)) : IniText();
    if (content && pack_.section_count() == 0) {
      useless = Outcome::Failed(kPastEndOfFile, "The language pack holds no section")
                    .With("File: ", path);
    }
  });
  if (read.number() == kFileNotFound) return {};  // the defaults serve
  return read.ok() ? std::move(useless) : std::move(read);
}

std::string WithLineBreaks(std::string_view message) { return ReplaceAll(message, "#", "\r\n"); }

}  // namespace scourwell
