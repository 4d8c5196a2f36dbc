// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "definitions/kinds.h"
#include "machine/error_log.h"
#include "platform/pump.h"

namespace scourwell {

// One definition that is compiled into the program, in the words of a reference file's entry.
struct BuiltInRow {
  DefinitionKind kind;
  const char* spy;
  const char* value;
  const char* second = "";
};

// One procedure of the program: its rows in the order of their file.
struct BuiltInList {
  const char* name;
  std::span<const BuiltInRow> rows;
};

// The tables are made by scripts/make-builtin from definitions/builtin.
extern const BuiltInList kBuiltInTrojanDirectFolders;
extern const BuiltInList kBuiltInTrojanFiles;
extern const BuiltInList kBuiltInDialerFolders;
extern const BuiltInList kBuiltInDialerDirectFolders;
extern const BuiltInList kBuiltInDialerDirectFiles;
extern const BuiltInList kBuiltInDialerFiles;
extern const BuiltInList kBuiltInHijackerFolders;
extern const BuiltInList kBuiltInHijackerDirectEntries;
extern const BuiltInList kBuiltInHijackerFiles;
extern const BuiltInList kBuiltInHijackerDirectFiles;
extern const BuiltInList kBuiltInKeyLoggerFolders;
extern const BuiltInList kBuiltInKeyLoggerDirectFolders;
extern const BuiltInList kBuiltInKeyLoggerFiles;
extern const BuiltInList kBuiltInKeyLoggerDirectFiles;
extern const BuiltInList kBuiltInSpyFolders;
extern const BuiltInList kBuiltInSpyDirectFolders;
extern const BuiltInList kBuiltInSpyFiles;
extern const BuiltInList kBuiltInSpyDirectFiles;
extern const BuiltInList kBuiltInSpyFiles2;
extern const BuiltInList kBuiltInSpyDirectFiles2;
extern const BuiltInList kBuiltInCookies;
extern const BuiltInList kBuiltInProcesses;
extern const BuiltInList kBuiltInRegistry;
extern const BuiltInList kBuiltInRegistryStartupValues;
extern const BuiltInList kBuiltInRegistryAppPathValues;

// The lists of one stage of a scan, in their order.
using BuiltInStage = std::span<const BuiltInList* const>;

inline constexpr const BuiltInList* kBuiltInTrojanFolderStage[] = {&kBuiltInTrojanDirectFolders};
inline constexpr const BuiltInList* kBuiltInTrojanFileStage[] = {&kBuiltInTrojanFiles};
inline constexpr const BuiltInList* kBuiltInDialerFolderStage[] = {&kBuiltInDialerFolders,
                                                                   &kBuiltInDialerDirectFolders};
inline constexpr const BuiltInList* kBuiltInDialerFileStage[] = {&kBuiltInDialerDirectFiles,
                                                                 &kBuiltInDialerFiles};
inline constexpr const BuiltInList* kBuiltInHijackerFolderStage[] = {
    &kBuiltInHijackerFolders, &kBuiltInHijackerDirectEntries};
inline constexpr const BuiltInList* kBuiltInHijackerFileStage[] = {&kBuiltInHijackerFiles,
                                                                   &kBuiltInHijackerDirectFiles};
inline constexpr const BuiltInList* kBuiltInKeyLoggerFolderStage[] = {
    &kBuiltInKeyLoggerFolders, &kBuiltInKeyLoggerDirectFolders};
inline constexpr const BuiltInList* kBuiltInKeyLoggerFileStage[] = {&kBuiltInKeyLoggerFiles,
                                                                    &kBuiltInKeyLoggerDirectFiles};
inline constexpr const BuiltInList* kBuiltInSpyFolderStage[] = {&kBuiltInSpyFolders,
                                                                &kBuiltInSpyDirectFolders};
inline constexpr const BuiltInList* kBuiltInSpyFileStage[] = {
    &kBuiltInSpyFiles, &kBuiltInSpyDirectFiles, &kBuiltInSpyFiles2, &kBuiltInSpyDirectFiles2};
inline constexpr const BuiltInList* kBuiltInCookieStage[] = {&kBuiltInCookies};
inline constexpr const BuiltInList* kBuiltInMemoryStage[] = {&kBuiltInProcesses};
// The registry list calls the other two when it is through.
inline constexpr const BuiltInList* kBuiltInRegistryStage[] = {
    &kBuiltInRegistry, &kBuiltInRegistryStartupValues, &kBuiltInRegistryAppPathValues};

// Hands the compiled-in definitions to the same lists as the reference file's.
class BuiltInLists {
 public:
  BuiltInLists(DefinitionLists& lists, const SystemFolders& folders, Pump& pump, ErrorLog& log)
      : lists_(lists), folders_(folders), pump_(pump), log_(log) {}

  // Ends at once when the closing flag is set; a list that fails does not keep the next from
  // running.
  void AddBuiltIn(BuiltInStage stage);
  void AddBuiltIn(const BuiltInList& list);

 private:
  DefinitionLists& lists_;
  const SystemFolders& folders_;
  Pump& pump_;
  ErrorLog& log_;
};

}  // namespace scourwell
