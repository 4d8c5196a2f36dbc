// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "definitions/definition.h"
#include "machine/registry_place.h"

namespace scourwell {

// One function object of several, for std::visit.
template <class... Answers>
struct Overloaded : Answers... {
  using Answers::operator()...;
};
template <class... Answers>
Overloaded(Answers...) -> Overloaded<Answers...>;

// What a scan can find on the machine, each kind with what the later steps need of it. List, log,
// ignore list, backup and removal switch over FoundObject: a new kind does not compile until each
// of them has an answer.

struct FoundFile {
  std::string path;
};

struct FoundFolder {
  std::string path;
};

// A file of the browser. It stands for the site that left it, and it is no program.
struct FoundCookie {
  std::string path;
};

struct FoundKey {
  RegistryPlace place;
  bool view64 = false;  // lies in the view that only 64-bit programs have
};

struct FoundValue {
  RegistryPlace key;
  std::string name;  // empty: the key's unnamed value
  std::string data;  // as ValueToText says it
  bool view64 = false;
};

struct FoundProcess {
  std::string image;  // path of its program, or what Windows 95, 98 and Me say of it
  std::uint32_t id = 0;
};

using FoundObject =
    std::variant<FoundFile, FoundFolder, FoundCookie, FoundKey, FoundValue, FoundProcess>;

// The kinds in the order of FoundObject.
enum class FindingKind : std::uint8_t { File, Folder, Cookie, RegistryKey, RegistryValue, Process };

inline FindingKind KindOf(const FoundObject& object) {
  return static_cast<FindingKind>(object.index());
}

// The path of what lies on a disk; null for everything else.
const std::string* PathOnDisk(const FoundObject& object);

// How a definition knew what it found, the surest way first.
enum class Certainty : std::uint8_t {
  Place,        // it names this file, folder, key or value and no other
  Name,         // the whole name of a file, a folder or a process
  VersionText,  // a text of a program's version information, as a whole
  Pattern,      // a name with wildcards
  Part,         // a part of a name, of a key, of data or of a version text
  Checksum,     // the size of a program and a sum that one in 256 others of that size shares
  Beside,       // nothing of its own: it lies in a folder that was found, or is one of all cookies
};

// Why a finding is one: the spy whose definition names it.
struct Evidence {
  std::string_view spy;
  Certainty certainty = Certainty::Name;
  DefinitionSource source = DefinitionSource::File;
};

// One thing found, under the name of the spy whose definition names it.
struct Finding {
  std::string spy;
  FoundObject object;
  Certainty certainty = Certainty::Name;
  DefinitionSource source = DefinitionSource::File;
  // Whose HKEY_CURRENT_USER or cookies, on a machine that does not run. A running one shows those
  // of one user only, and says nothing here.
  std::string user = {};
};

// What tells one item from another, to be compared without case: a running program and its file
// are two, and so are two processes of one image. A cookie is a file.
std::string IdentityOf(const FoundObject& object);

// Where the scan hands its findings.
class FindingSink {
 public:
  virtual ~FindingSink() = default;
  // True when this item was handed over since the scan began.
  virtual bool Contains(const FoundObject& object) const = 0;
  // True when it was, and is certainly not excluded.
  virtual bool Shows(const FoundObject& object) const = 0;
  virtual void AddSpyToListView(const Finding& finding) = 0;
};

// Hands an item over unless it is there already. Returns whether it was new.
bool ReportOnce(FindingSink& sink, FoundObject object, const Evidence& evidence);

}  // namespace scourwell
