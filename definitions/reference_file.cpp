#include "definitions/reference_file.h"

#include "platform/file_utils.h"
#include "platform/text.h"

namespace scourwell {
namespace {

constexpr unsigned char kShift = 12;
constexpr char kFileName[] = "update.ref";

}  // namespace

std::optional<std::string> CleanParam(std::string_view text) {
  const std::size_t end = text.find('\0');
  if (end == std::string_view::npos) return std::nullopt;
  return std::string(text.substr(0, end));
}

std::optional<std::string> Decrypt(std::string_view scrambled) {
  std::string plain(scrambled);
  for (char& c : plain) {
    const auto code = static_cast<unsigned char>(c);
    if (code < kShift) return std::nullopt;
    c = static_cast<char>(code - kShift);
  }
  return plain;
}

ReferenceFile::ReferenceFile(Files& files, Clock& clock, ErrorLog& log,
                             const AppSettings& settings, const std::string& application_folder)
    : files_(files),
      log_(log),
      settings_(settings),
      own_path_(AddPathToFileName(AddPathToFileName(application_folder, "Ini"), kFileName)),
      watched_(files, clock) {}

std::string ReferenceFile::updateListfromINI(std::string_view section, std::string_view key) {
  std::string value;
  static_cast<void>(log_.Trap("updateListfromINI", [&]() -> Outcome {
    if (!checkUpdateIni()) return {};
    const std::optional<std::string_view> raw = ini_.Find(section, key);
    if (!raw) return {};
    const auto where = [&](Outcome failed) {
      return std::move(failed).With("Section: ", section).With("Key: ", key);
    };
    const std::optional<std::string> plain = Decrypt(TrimNull(raw->substr(0, kLongestValue)));
    if (!plain) {
      log_.LogFailure(where(Outcome::Failed(kInvalidCall)), "Decrypt");
      return {};
    }
    value = *plain;
    if (raw->size() <= kLongestValue) return {};
    return where(Outcome::Failed(kOverflow, "A value longer than 1999 bytes was cut"));
  }));
  return value;
}

bool ReferenceFile::checkUpdateIni() {
  return log_
      .Trap("checkUpdateIni",
            [&]() -> Outcome {
              if (candidate_path_.empty() || definitions_folder_ != settings_.DefinitionsFolder) {
                definitions_folder_ = settings_.DefinitionsFolder;
                candidate_path_ = AddPathToFileName(definitions_folder_, kFileName);
              }
              switch (watched_.Look(candidate_path_, own_path_)) {
                case WatchedFile::State::Same: return {};
                case WatchedFile::State::Changed: return Parse();
                case WatchedFile::State::Missing: break;
              }
              ini_ = IniText();
              if (!watched_.vanished()) return {};
              return Outcome::Failed(kFileNotFound).With("File: ", own_path_);
            })
      .ok();
}

Outcome ReferenceFile::Parse() {
  ini_ = IniText();
  ++generation_;
  std::string content;
  Outcome read = files_.Read(watched_.path(), kLargest, &content);
  if (!read.ok()) return std::move(read).With("File: ", watched_.path());
  ini_ = IniText(std::move(content));
  if (ini_.section_count() != 0) return {};
  return Outcome::Failed(kPastEndOfFile, "The definitions file holds no section")
      .With("File: ", watched_.path());
}

void ReferenceFile::Release() {
  ini_ = IniText();
  watched_.Forget();
}

}  // namespace scourwell
