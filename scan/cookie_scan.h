// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "definitions/definition_list.h"
#include "machine/error_log.h"
#include "platform/files.h"
#include "platform/pump.h"
#include "scan/containment_index.h"
#include "scan/finding.h"
#include "scan/scan_progress.h"

namespace scourwell {

// The cookie files of the user's browser: one text file a site, named after it.
class CookieScan {
 public:
  // `definitions` must stay unchanged as long as the scan lives.
  CookieScan(Files& files, Pump& pump, ErrorLog& log, FindingSink& sink, ScanProgress& progress,
             const DefinitionList<CookieFragment>& definitions);

  // Lists the folder's ordinary ".txt" files that look like cookies and whose name holds a
  // fragment, under the first definition that does; with `all`, every other one as well, under the
  // name "Other". `folder` may end in "\". A folder that is not there yields nothing.
  void ScanCookie(const std::string& folder, bool all);

 private:
  Outcome ListCookies(const std::string& folder, std::vector<std::string>* cookies);
  bool IsCookie(const std::string& path, const std::string& name);
  void Check(const std::string& path, const std::string& name, bool all);

  Files& files_;
  Pump& pump_;
  ErrorLog& log_;
  FindingSink& sink_;
  ScanProgress& progress_;
  const DefinitionList<CookieFragment>& definitions_;
  ContainmentIndex index_;
};

}  // namespace scourwell
