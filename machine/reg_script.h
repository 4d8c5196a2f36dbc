// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

#include "machine/op_sys_info.h"
#include "platform/code_pages.h"
#include "platform/registry.h"

namespace scourwell {

// The first line of a script, without its end.
inline constexpr std::string_view kAnsiHeader = "REGEDIT4";
inline constexpr std::string_view kUnicodeHeader = "Windows Registry Editor Version 5.00";

// What the registry editor of the running system reads.
enum class ScriptReader {
  Ansi,     // REGEDIT4 alone
  Unicode,  // Windows 2000 and later: also "Windows Registry Editor Version 5.00" in UTF-16
};

ScriptReader ReaderOf(const COpSysInfo& os);

// False for a name that no script line can hold: one with a line break or another control
// character would end the line and smuggle in a line of its own.
bool CanStandInScript(std::string_view name);

// A registry script: lines that end in CR LF, key lines in brackets, names and texts in quotes with
// "\" and the quotation mark escaped. It takes the REGEDIT4 form as long as everything in it is
// ASCII, or where the editor knows no other one.
class RegScript {
 public:
  RegScript(CodePages& code_pages, ScriptReader reader);

  // `full_path` begins with the name of its root. What the form cannot hold is refused: control
  // characters and, for an ANSI reader, letters that the system's code page lacks.
  bool AddKey(std::string_view full_path);
  bool DeleteKey(std::string_view full_path);
  // The value belongs to the key added last. An empty name is the key's unnamed value.
  bool AddValue(std::string_view name, const RegValue& value);
  bool DeleteValue(std::string_view full_path, std::string_view name);

  // Nothing but the header.
  bool empty() const { return empty_; }
  // The bytes of the script file. With the mark, a comment says whose it is.
  std::string Bytes(bool marked = false) const;

 private:
  bool Append(std::string_view line);
  bool AppendBoth(std::string_view start, const RegValue& value);
  bool CanHold(std::string_view text) const;

  CodePages& code_pages_;
  ScriptReader reader_;
  bool empty_ = true;
  bool only_ascii_ = true;
  std::string ansi_;     // bytes; given up at the first character that is not ASCII
  std::string unicode_;  // as a text; only for a reader of it
};

// True for the beginning of a script that was written with the mark.
bool BearsScriptMark(std::string_view beginning);

// A text between quotes, escaped.
std::string QuotedForScript(std::string_view text);
// "@" for the unnamed value, else the quoted name.
std::string ValueNameForScript(std::string_view name);

}  // namespace scourwell
