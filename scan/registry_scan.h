// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <vector>

#include "definitions/list_loader.h"
#include "machine/error_log.h"
#include "platform/pump.h"
#include "platform/registry.h"
#include "scan/containment_index.h"
#include "scan/finding.h"
#include "scan/scan_progress.h"

namespace scourwell {

// Value data as it is compared with signatures: texts with every "\" doubled, "hex:" and the
// bytes, "dword:" and the hexadecimal digits.
std::string ComparableData(const RegValue& value);

struct RegistryWalk;

// The quick and the deep pass over fixed parts of the registry. The key
// parts and the values of `lists` must stay unchanged as long as the scan lives.
// Which view of the registry is walked.
struct RegistryView {
  // The second one of a 64-bit Windows: only what differs from the 32-bit one is walked, and what
  // is found says so.
  bool is_64 = false;
  // Keys that both views share (IsSharedByViews) are one, as from Windows 7 on.
  bool shares = false;
};

class RegistryScan {
 public:
  RegistryScan(Registry& registry, Pump& pump, ErrorLog& log, FindingSink& sink,
               ScanProgress& progress, DefinitionLists& lists, ListLoader& loader,
               RegistryView view = {});

  // Named keys, thirteen keys where spies settle, named values.
  void QuickPass();
  // Module usage, class identifiers, layered network providers.
  void DeepPass();

 private:
  void LoadNamedKeys();
  void Measure(std::span<const RegistryWalk> walks, std::size_t rows);
  void CheckNamedKeys();
  void CheckRegistryKType(const NamedKey& definition);
  void CheckNamedValues();
  void CheckNamedValue(const NamedValue& definition);
  void WalkAll(std::span<const RegistryWalk> walks);
  void Walk(const RegistryWalk& walk);
  // `steps`: each value is one of the phase.
  void WalkValues(RootKey root, const std::string& path, bool steps);
  void CheckValue(RootKey root, const std::string& path, const std::string& name,
                  const RegValue& value);
  void WalkKeys(RootKey root, const std::string& path, unsigned depth);
  template <class Found>
  bool CheckMatching(std::string_view examined, Found&& found);
  template <class Found>
  void Report(Found found, const Evidence& evidence);
  bool IsSeen(RootKey root, std::string_view path) const;
  void ShowKey(RootKey root, const std::string& path);

  Registry& registry_;
  Pump& pump_;
  ErrorLog& log_;
  FindingSink& sink_;
  ScanProgress& progress_;
  DefinitionLists& lists_;
  ListLoader& loader_;
  ContainmentIndex index_;
  RegistryView view_;
  std::vector<std::uint32_t> sizes_;  // of the walks of the pass
};

}  // namespace scourwell
