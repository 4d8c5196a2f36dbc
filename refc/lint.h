// SPDX-License-Identifier: MIT
#pragma once

#include "refc/definition_set.h"

namespace scourwell::refc {

// Judges what the readers let pass. A row deletes, kills or edits on somebody's machine, so every
// doubt is a finding. The rules, with those of the readers:
//
//   form        not the form of its kind, or nothing that a search could find
//   source      the row does not say where it is known from (sources only)
//   characters  outside the code page, or without a scrambled form
//   length      longer than the program reads
//   gap         an entry that lacks a key, or a number left out
//   duplicate   the same thing twice
//   unread      what the program never reads
//   count       a count that differs from what is read
//   token       no, an unknown, a misspelt or more than one folder token
//   broad       would hit much more than one program's own
//   known-good  a name that Windows or a common program uses
//   cookie      a fragment of an ordinary site's cookie
//   short       a file name of fewer than eight characters without a folder
//   class-id    an identifier of a class that Windows or a common program has
//   built-in    compiled into the program already
//   withdrawn   withdraws what is not compiled in
//   reach       a key part that no walk of the registry phase comes by
//   helper      a helper object whose class is not looked for
//   category    the spy's name belongs to another family, or the spy to no category
void Lint(const DefinitionSet& set, Findings* findings);

}  // namespace scourwell::refc
