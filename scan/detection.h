#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scourwell {

// Kind labels: a row's identity for every later step, compared exactly.
inline constexpr std::string_view kSpyFile = "Spy File";
inline constexpr std::string_view kSpyFolder = "Spy Folder";
inline constexpr std::string_view kSpyCookie = "Spy Cookie";
inline constexpr std::string_view kSpyRegistryKey = "Spy Registry Key";
inline constexpr std::string_view kSpyRegistryValue = "Spy Registry Value";
inline constexpr std::string_view kMemoryProcess = "Memory Process";

// Type codes, which are also the rows' icon numbers.
enum TypeCode : std::uint8_t {
  kCodeFile = 3,
  kCodeFolder = 4,
  kCodeRegistry = 5,
  kCodeProcess = 9,
};

// One thing found on the machine that a definition names.
struct Detection {
  std::string kind;     // one of the labels above
  std::string details;  // full path of the file, folder, key or value
  std::string system;   // the spy name
  std::uint8_t icon = 0;
  std::string tool_tip;
  std::string tag;
  bool view64 = false;  // lies in the registry's 64-bit view; the details end in kView64
};

// Behind the details of what only 64-bit programs see; tool-tips hold the bare key path.
inline constexpr std::string_view kView64 = " (64-bit)";

// The details without the word for the 64-bit view.
std::string_view BareDetails(const Detection& found);
// The name of the value that a registry value row stands for: its details less the key path.
std::string_view ValueName(const Detection& value);

// What tells one item from another: a running program and its file are two, and so are two
// processes of one image. A cookie is a file. Keys of one item may differ in case.
std::string IdentityOf(const Detection& found);

// Where the scan hands its detections.
class DetectionSink {
 public:
  virtual ~DetectionSink() = default;
  // True when this item was handed over since the scan began; compared without case.
  virtual bool Contains(const Detection& detection) const = 0;
  // True when it was, and the user sees it: it is not excluded.
  virtual bool Shows(const Detection& detection) const = 0;
  virtual void AddSpyToListView(const Detection& detection) = 0;
};

// Hands an item over unless it is there already. Returns whether it was new.
bool ReportOnce(DetectionSink& sink, std::string_view kind, std::uint8_t code, std::string details,
                std::string_view spy);

}  // namespace scourwell
