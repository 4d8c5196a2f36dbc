// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace scourwell {

// Who may do what to a folder, in the form in which the NT family hands it out: one run of bytes.

// True when nobody but administrators and the system can swap the folder for something else, or
// empty it and make a link of it. False for anything that cannot be understood.
bool IsClosedToUsers(std::string_view descriptor);

// True when a group that every user belongs to can change what lies in the folder. False for
// anything that cannot be understood, also for no bytes at all.
bool LetsEveryUserChange(std::string_view descriptor);

// That of a new folder in which nobody but those may do anything, and which takes over nothing from
// the folder above.
std::string ClosedDescriptor();

}  // namespace scourwell
