#pragma once

#include <string>
#include <string_view>

#include "platform/registry.h"

namespace scourwell {

// Registry scripts in the REGEDIT4 form: ANSI text, CR LF, key lines in brackets, names and texts
// in quotes with "\" and the quotation mark escaped.
inline constexpr char kRegScriptHeader[] = "REGEDIT4\r\n";

// False for a name that no script line can hold: one with a line break or another control
// character would end the line and smuggle in a line of its own.
bool CanStandInScript(std::string_view name);

// A text between quotes, escaped.
std::string QuotedForScript(std::string_view text);
// "@" for the unnamed value, else the quoted name.
std::string ValueNameForScript(std::string_view name);
// name=data in the value's own type: quoted text where that brings back the same bytes, "dword:"
// for four bytes of type 4, else "hex(type):" in lines of at most 78 characters. Ends in CR LF.
std::string ValueLineForScript(std::string_view name, const RegValue& value);

}  // namespace scourwell
