// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "machine/error_log.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "shell/help_topics.h"
#include "text/captions.h"

namespace scourwell {

// The help of the program: help.chm in the folder "Help" and, beside it, the same pages as files
// for computers that cannot show it. What cannot be opened at all is put on record and named in a
// message.
class Help {
 public:
  Help(Files& files, Shell& shell, ErrorLog& log, const Captions& captions,
       const std::string& application_folder);

  // The page about a window; `method` is the name in error records.
  void ShowPage(std::string_view window, const char* method = "ShowHelp");
  // The help file with its associated program, as the help buttons do; the first page when nothing
  // opens it.
  void OpenFile(const char* method);

 private:
  Outcome CheckFile() const;
  void OpenPage(const std::string& page, const std::string& named, const char* method);

  Files& files_;
  Shell& shell_;
  ErrorLog& log_;
  const Captions& captions_;
  std::string folder_;
  std::string file_;
};

}  // namespace scourwell
