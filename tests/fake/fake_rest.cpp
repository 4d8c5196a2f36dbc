// SPDX-License-Identifier: MIT
#include <algorithm>
#include <chrono>
#include <utility>

#include "tests/fake/fake_machine.h"
#include "text/paths.h"
#include "text/unicode.h"
#include "text/windows_1252.h"

namespace scourwell::test {
namespace {

// What one call to a port asks of the files is no call of its own.
class Unfailing {
 public:
  explicit Unfailing(FakeFiles& files)
      : files_(files), faults_(std::exchange(files.port_faults, nullptr)) {}
  ~Unfailing() { files_.port_faults = faults_; }
  Unfailing(const Unfailing&) = delete;
  Unfailing& operator=(const Unfailing&) = delete;

 private:
  FakeFiles& files_;
  Faults* faults_;
};

}  // namespace

FakeProfiles::Found FakeProfiles::Search(const std::string& section, const std::string& key,
                                         const std::string& file) {
  Found found;
  std::string content;
  if (!files_.Read(file, 1 << 20, &content).ok()) return found;
  bool inside = false;
  for (std::size_t at = 0; at < content.size();) {
    const std::size_t end = std::min(content.find("\r\n", at), content.size());
    const std::string line(TrimBlanks(content.substr(at, end - at)));
    at = end + 2;
    const std::size_t equals = line.find('=');
    if (line.starts_with("[")) {
      inside = !found.section && EqualsNoCase(line, "[" + section + "]");
      if (inside) found.section = found.lines.size();
    } else if (inside && !found.key && equals != line.npos &&
               EqualsNoCase(TrimBlanks(line.substr(0, equals)), key)) {
      found.key = found.lines.size();
    }
    found.lines.push_back(line);
  }
  return found;
}

std::string FakeProfiles::ReadProfile(const std::string& section, const std::string& key,
                                      const std::string& file) {
  const Unfailing calls(files_);
  const Found found = Search(section, key, file);
  if (!found.key) return {};
  const std::string& line = found.lines[*found.key];
  std::string value(TrimBlanks(line.substr(line.find('=') + 1)));
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  return value;
}

Outcome FakeProfiles::WriteProfile(const std::string& section, const std::string& key,
                                   const std::optional<std::string>& value,
                                   const std::string& file) {
  if (const ErrorCode fault = files_.port_faults ? files_.port_faults->Next() : ErrorCode()) {
    return Outcome::Failed(fault);
  }
  const Unfailing calls(files_);
  Found found = Search(section, key, file);
  const auto at = [&](std::size_t line) {
    return found.lines.begin() + static_cast<std::ptrdiff_t>(line);
  };
  if (found.key) {
    if (value) {
      *at(*found.key) = key + "=" + *value;
    } else {
      found.lines.erase(at(*found.key));
    }
  } else if (value) {
    if (!found.section) {
      found.section = found.lines.size();
      found.lines.push_back("[" + section + "]");
    }
    found.lines.insert(at(*found.section + 1), key + "=" + *value);
  }
  std::string content;
  for (const std::string& line : found.lines) content += line + "\r\n";
  return files_.Replace(file, content);
}

LocalTime FakeClock::ToLocal(FileTime time) {
  using namespace std::chrono;
  const auto total = milliseconds(static_cast<std::int64_t>(time / 10'000));
  const auto day = floor<days>(total);
  const year_month_day date(sys_days(year{1601} / 1 / 1) + day);
  const hh_mm_ss clock(total - day);
  return {int(date.year()),
          int(unsigned(date.month())),
          int(unsigned(date.day())),
          int(clock.hours().count()),
          int(clock.minutes().count()),
          int(clock.seconds().count()),
          int(clock.subseconds().count())};
}

std::string FakeClock::ShortDate(const LocalTime& time) {
  return std::to_string(time.month) + "/" + std::to_string(time.day) + "/" +
         std::to_string(time.year);
}

std::string FakeClock::TimeOfDay(const LocalTime& time) {
  return std::to_string(time.hour % 12 == 0 ? 12 : time.hour % 12) + ":" +
         Padded(static_cast<unsigned>(time.minute), 2) + ":" +
         Padded(static_cast<unsigned>(time.second), 2) + (time.hour < 12 ? " AM" : " PM");
}

bool FakeSystem::QueryVersion(unsigned record_size, VersionRecord* out) {
  if (record_size == kExtendedVersionRecord && !knows_extended) return false;
  *out = record;
  if (record_size == kBasicVersionRecord) {
    out->service_pack_major = out->service_pack_minor = out->suite_mask = out->product_type = 0;
  }
  return true;
}

Outcome FakeSystem::TerminateProcess(std::uint32_t process_id, const std::function<bool()>& go_on) {
  if (const ErrorCode fault = port_faults ? port_faults->Next() : ErrorCode()) {
    return Outcome::Failed(fault);
  }
  journal.push_back("Terminate " + std::to_string(process_id));
  if (!processes_ || !processes_->Find(process_id)) return Outcome::Failed(kInvalidCall);
  for (int i = 0; i < waits; ++i) {
    if (!go_on()) return {};
  }
  if (on_ended) on_ended();
  return {};
}

std::vector<std::string> FakeProcesses::Modules(std::uint32_t process_id) {
  const ProcessEntry* process = Find(process_id);
  if (!process) return {};
  return {process->path, "C:\\b.dll"};
}

const ProcessEntry* FakeProcesses::Find(std::uint32_t process_id) const {
  const auto found = std::ranges::find(running, process_id, &ProcessEntry::id);
  return found == running.end() ? nullptr : &*found;
}

Outcome FakeShell::ReadShortcut(const std::string& link, std::string* target,
                                std::string* arguments) {
  std::string content;
  if (!files_.Read(link, 1 << 20, &content).ok()) return Outcome::Failed(kFileNotFound);
  const std::size_t bar = content.find('|');
  if (!content.starts_with("LNK ") || bar == content.npos) return Outcome::Failed(kPathFileAccess);
  *target = content.substr(4, bar - 4);
  *arguments = content.substr(bar + 1);
  return {};
}

Outcome FakeShell::ShortcutTarget(const std::string& link, std::string* target) {
  journal.push_back("Shortcut " + link);
  std::string unused;
  return ReadShortcut(link, target, &unused);
}

Outcome FakeShell::ShortcutArguments(const std::string& link, std::string* arguments) {
  std::string unused;
  return ReadShortcut(link, &unused, arguments);
}

Outcome FakeShell::CreateShortcut(const std::string& link, const std::string& target,
                                  const std::string& arguments) {
  DirEntry entry;
  if (files_.Stat(link, &entry).ok()) return Outcome::Failed(kFileExists);
  return files_.Replace(link, MakeShortcut(target, arguments));
}

Outcome FakeShell::StartCommand(const std::string& command_line) {
  journal.push_back("Run " + command_line);
  if (start_error) return Outcome::Failed(start_error);
  DirEntry entry;
  const std::size_t quote = command_line.find('"', 1);
  const std::string program = command_line.starts_with("\"")
                                  ? command_line.substr(1, quote - 1)
                                  : command_line.substr(0, command_line.find(' '));
  return files_.Stat(program, &entry).ok() ? Outcome() : Outcome::Failed(kFileNotFound);
}

Outcome FakeShell::ShowHelp(const std::string& file, const std::string& page) {
  journal.push_back("Help " + file + "::/" + page);
  DirEntry entry;
  if (!files_.Stat(file, &entry).ok()) return Outcome::Failed(kFileNotFound);
  return help_error ? Outcome::Failed(help_error) : Outcome();
}

Outcome FakeVersions::ReadBlock(const std::string& path, std::string* block) {
  journal.push_back(path);
  const auto found = blocks.find(path);
  if (found == blocks.end()) return Outcome::Failed(kFileNotFound);
  *block = found->second;
  return {};
}

void FakePump::YieldNow() {
  ++yields;
  if (on_yield) on_yield();
  if (yields == close_at) set_closing(true);
}

Node& FakeMachine::File(const std::string& path, std::string content) {
  Node& node = files.Put(path, kArchive);
  node.content = std::move(content);
  node.modified = node.accessed = files.NextTime();
  return node;
}

Node& FakeMachine::Link(const std::string& path, const std::string& target) {
  Node& node = files.Put(path, kFolder | kLink);
  node.target = target;
  return node;
}

std::string FakeMachine::Content(const std::string& path) {
  const Node* node = files.Find(path);
  return node ? node->content : std::string();
}

std::string FakeMachine::Errors() {
  const std::string log = Content(kErrorLog);
  std::string messages;
  for (std::size_t at = 0; at < log.size();) {
    const std::size_t end = std::min(log.find("\"\r\n\"\r\nDate: ", at), log.size());
    const std::string record = log.substr(at, end - at);
    const std::size_t message = record.rfind("\",\"") + 3;
    messages += record.substr(message, record.find("\"\r\n", message) - message) + "\n";
    at = end + 3;
  }
  return messages;
}

std::string FakeMachine::Failures() {
  constexpr std::string_view kNumber = "Error Number: ";
  std::string text = ReplaceAll(Errors(), ", Method: ", " ");
  for (std::size_t at; (at = text.find("Error Description: ")) != text.npos;) {
    text.erase(at, text.find(kNumber, at) + kNumber.size() - at);
  }
  return text;
}

namespace {

// What a code page has in the place of some bytes; all others are as in 1252.
struct Letters {
  unsigned code_page;
  std::string_view bytes;
  std::u16string_view letters;
};
constexpr Letters kLetters[] = {
    {1250,
     "\xA5\xC6\xCA\xA3\xD1\x8C\x8F\xAF"
     "\xB9\xE6\xEA\xB3\xF1\x9C\x9F\xBF",
     u"\u0104\u0106\u0118\u0141\u0143\u015A\u0179\u017B\u0105\u0107\u0119\u0142\u0144\u015B"
     u"\u017A\u017C"},
    {1251, "\xC0\xC1\xC2\xE0\xE1\xE2\xFF", u"\u0410\u0411\u0412\u0430\u0431\u0432\u044F"},
    {1252, "", u""}};

const Letters* LettersOf(unsigned code_page) {
  for (const Letters& each : kLetters) {
    if (each.code_page == code_page) return &each;
  }
  return nullptr;
}

}  // namespace

Outcome FakeCodePages::Decode(unsigned code_page, std::string_view bytes, std::string* text) {
  ++asked;
  const Letters* page = LettersOf(code_page);
  if (!page) return Outcome::Failed(kInvalidCall);
  std::string decoded;
  for (const char& c : bytes) {
    const std::size_t at = page->bytes.find(c);
    if (at == page->bytes.npos) {
      decoded += From1252({&c, 1});
    } else {
      AppendCode(page->letters[at], &decoded);
    }
  }
  *text = std::move(decoded);
  return {};
}

std::optional<std::string> FakeCodePages::Encode(std::string_view text) {
  const Letters* page = LettersOf(system);
  std::string bytes;
  for (const char16_t unit : ToUtf16(text)) {
    const std::size_t at = page->letters.find(unit);
    const std::optional<std::string> byte =
        at == page->letters.npos ? To1252(FromUtf16({&unit, 1})) : std::string(1, page->bytes[at]);
    if (!byte || (at == page->letters.npos && page->bytes.find(*byte) != page->bytes.npos)) {
      return std::nullopt;
    }
    bytes += *byte;
  }
  return bytes;
}

}  // namespace scourwell::test
