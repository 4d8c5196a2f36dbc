// SPDX-License-Identifier: MIT
#include "shell/help.h"

#include <memory>
#include <utility>

#include "machine/file_utils.h"

namespace scourwell {
namespace {

constexpr char kSignature[] = "ITSF";
constexpr std::size_t kHead = 0x80;            // all that is read of a help file
constexpr std::size_t kFirstSectionAt = 0x38;  // where the head says where that section stands
constexpr std::size_t kFileSizeAt = 8;         // in that section

std::uint32_t Number(const char* bytes) {
  std::uint32_t number = 0;
  for (int i = 3; i >= 0; --i) number = number << 8 | static_cast<unsigned char>(bytes[i]);
  return number;
}

Outcome Damaged() { return Outcome::Failed(kPathFileAccess, "The help file is damaged"); }

}  // namespace

Help::Help(Files& files, Shell& shell, ErrorLog& log, const Captions& captions,
           const std::string& application_folder)
    : files_(files),
      shell_(shell),
      log_(log),
      captions_(captions),
      folder_(AddPathToFileName(application_folder, "Help")),
      file_(AddPathToFileName(folder_, "help.chm")) {}

void Help::ShowPage(std::string_view window, const char* method) {
  const std::string page = TopicOf(window).page;
  const Outcome shown = log_.TrapOutcome(method, [&]() -> Outcome {
    Outcome result = CheckFile();
    if (result.ok()) result = shell_.ShowHelp(file_, page);
    return result.ok() ? Outcome() : std::move(result).With("File: ", file_);
  });
  if (!shown.ok()) OpenPage(page, AddPathToFileName(folder_, page), method);
}

void Help::OpenFile(const char* method) {
  const Outcome opened = log_.TrapOutcome(method, [&]() -> Outcome {
    Outcome result = CheckFile();
    if (result.ok()) result = shell_.Open(file_);
    return result.ok() ? Outcome() : std::move(result).With("File: ", file_);
  });
  if (!opened.ok()) OpenPage(TopicOf({}).page, file_, method);
}

// The viewer would complain of a file that is not whole in a box of its own, and still claim
// success.
Outcome Help::CheckFile() const {
  std::unique_ptr<FileReader> reader;
  Outcome result = files_.OpenReader(file_, &reader);
  if (!result.ok()) return result;
  char head[kHead] = {};
  std::size_t filled = 0;
  result = reader->ReadAt(0, head, kHead, &filled);
  if (!result.ok()) return result;
  if (filled < kHead || !std::string_view(head, kHead).starts_with(kSignature)) return Damaged();
  const std::size_t section = Number(head + kFirstSectionAt);
  if (section > kHead - kFileSizeAt - 4) return Damaged();
  if (Number(head + section + kFileSizeAt) != reader->size()) return Damaged();
  return {};
}

// `named`: the file that the message names when this fails as well.
void Help::OpenPage(const std::string& page, const std::string& named, const char* method) {
  const std::string path = AddPathToFileName(folder_, page);
  const Outcome opened = log_.TrapOutcome(method, [&]() -> Outcome {
    Outcome result = shell_.Open(path);
    return result.ok() ? Outcome() : std::move(result).With("File: ", path);
  });
  if (!opened.ok()) {
    shell_.Message(captions_.Text(Caption::HelpNotOpened) + "\r\n" + named,
                   captions_.Text(Caption::Information));
  }
}

}  // namespace scourwell
