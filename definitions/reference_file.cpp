// SPDX-License-Identifier: MIT
#include "definitions/reference_file.h"

#include "machine/file_utils.h"
#include "text/text.h"
#include "text/windows_1252.h"

namespace scourwell {
namespace {

constexpr unsigned char kShift = 12;

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

std::optional<std::string> PlainValue(std::string_view raw) {
  const std::optional<std::string> plain = Decrypt(TrimNull(raw.substr(0, kLongestValue)));
  return plain ? std::optional(From1252(*plain)) : std::nullopt;
}

void AppendScrambled(std::string_view plain, std::string* text) {
  for (const char c : plain) {
    text->push_back(static_cast<char>(static_cast<unsigned char>(c) + kShift));
  }
}

ReferenceFile::ReferenceFile(Files& files, Clock& clock, ErrorLog& log, const AppSettings& settings,
                             const std::string& application_folder)
    : log_(log),
      settings_(settings),
      own_path_(AddPathToFileName(AddPathToFileName(application_folder, "Ini"), kReferenceName)),
      watched_(files, clock, kLargest) {}

std::string ReferenceFile::updateListfromINI(std::string_view section, std::string_view key) {
  std::string value;
  log_.Trap("updateListfromINI", [&]() -> Outcome {
    if (!checkUpdateIni()) return {};
    const std::optional<std::string_view> raw = ini_.Find(section, key);
    if (!raw) return {};
    const auto where = [&](Outcome failed) {
      return std::move(failed).With("Section: ", section).With("Key: ", key);
    };
    const std::optional<std::string> plain = PlainValue(*raw);
    if (!plain) {
      log_.LogFailure(where(Outcome::Failed(kInvalidCall)), "Decrypt");
      return {};
    }
    value = *plain;
    if (raw->size() <= kLongestValue) return {};
    return where(Outcome::Failed(kOverflow, "A value longer than 1999 bytes was cut"));
  });
  return value;
}

bool ReferenceFile::checkUpdateIni() {
  const auto refresh = [&]() -> Outcome {
    if (candidate_path_.empty() || definitions_folder_ != settings_.DefinitionsFolder) {
      definitions_folder_ = settings_.DefinitionsFolder;
      candidate_path_ = AddPathToFileName(definitions_folder_, kReferenceName);
    }
    Outcome parsed;
    const bool given = !given_path_.empty();
    Outcome read = watched_.Refresh(
        given ? given_path_ : candidate_path_, given ? std::string() : own_path_,
        [&](std::optional<std::string> content) { parsed = Parse(std::move(content)); });
    return read.ok() ? std::move(parsed) : std::move(read);
  };
  // A file that is missing or useless is put on record and reads as empty; only what was not
  // foreseen closes the gate.
  return log_.TrapOutcome("checkUpdateIni", refresh).code() != kOutOfMemory;
}

Outcome ReferenceFile::Parse(std::optional<std::string> content) {
  ini_ = IniText();  // the old text goes before the new one is indexed
  ++generation_;
  if (!content) return {};
  ini_ = IniText(std::move(*content));
  if (ini_.section_count() != 0) return {};
  return Outcome::Failed(kPastEndOfFile, "The definitions file holds no section")
      .With("File: ", watched_.path());
}

}  // namespace scourwell
