// SPDX-License-Identifier: MIT
#pragma once

namespace scourwell {

class ControlCalls;
class DialogCalls;
class WindowCalls;

// What each of the two families brings: nt/ holds the wide calls, w9x/ the ANSI ones, and no other
// place names either. Only those of the family that runs are ever asked for.
namespace nt {
const WindowCalls& Windows();
const ControlCalls& Controls();
const DialogCalls& Dialogs();
}  // namespace nt

namespace w9x {
const WindowCalls& Windows();
const ControlCalls& Controls();
const DialogCalls& Dialogs();
}  // namespace w9x

}  // namespace scourwell
