// SPDX-License-Identifier: MIT
#include "refc/help.h"

namespace scourwell::refc {

const char kHelp[] =
    R"(refc compiles, prints and checks definitions of Scourwell.

  refc build SOURCE... -o FILE         makes the reference file FILE
  refc dump FILE                       prints a reference file readably
  refc lint SOURCE...                  judges definitions
  refc match SOURCE ITEM...            says which definitions would hit the items
  refc diff [--changes FILE [--number TEXT]] OLD NEW
                                       lists what was added, removed and changed
  refc stats SOURCE...                 counts rows by what they are and how sure
  refc --help                          prints this

SOURCE (also OLD and NEW) is a folder with *.tsv files, one such file, or a
reference file: a file whose name ends in ".ref". A file that refc dump has
printed is a source, too. "--" ends the options.

The lines of a *.tsv file have columns with tabs between them:

  spy   kind   what to look for   source   comment

The source of the fact is asked for by lint, the comment may be left out. It
holds a folder token ("%SYS%") where the source names the place of a file that
is searched everywhere.
Lines that begin with "#" are comments. The name of the file says the family:
trojans, dialers, hijackers, keyloggers, spyware, cookies, withdrawn, release,
categories; a line "[family]" changes it. Files are UTF-8.

  kind            what to look for
  file, folder    a name (with * and ?), a path below any folder, or, at one
                  place only, a path behind a folder token: %WIN% %SYS% %PF%
                  %CF% %TMP% %AD% %Desktop% %Programs% %Personal% %Favorites%
                  %StartUp% %StartMenu% %DesktopDirectory% %Common_StartMenu%
                  %Common_Programs% %Common_StartUp%
                  %Common_DesktopDirectory% %Common_Favorites%
  process         a program's file name
  key             a registry key, from its root on
  key part        a class identifier or a path anywhere inside a key's path
  value           a registry value: key\\name, with two backslashes between
  cookie          a piece of a cookie's file name
  company, company part, original name, internal name, product, description
                  what a program says of itself in its version information
  checksum        a program's size and checksum, with a blank between them
  program, program part
                  the name, or a piece of it, of an installed program
  withdrawn       (only in the family withdrawn) a compiled-in search value

The family release has two columns: number, updated, added or removed, and the
text. The family categories has two as well, a category and what its programs
do, or three: SPY is CATEGORY, where SPY may end in "*", or be "any cookie".

build     writes nothing unless every row can be stored and will be read.
dump      prints "{x1F}" for a byte that is no character and "{raw05}" for one
          that no text gives when it is scrambled; remarks begin with ";".
lint      prints FILE:LINE: RULE: REASON for everything doubtful.
match     takes paths, names, registry keys (HKEY_...), registry values
          (key\\name) and cookies (user@site[1].txt), or KIND:text with one of
          the kinds above; prints item, kind, spy, definition and its place.
diff      prints "+", "-" and "~" with kind, spy and definition. --changes
          writes a release file with the release number of NEW (or --number)
          and the three texts of changes.
stats     prints name, tab, number of rows by family, kind, category and
          certainty, the share of rows with a page, spies with one row only,
          and rows that can never match.

Exit codes: 0 nothing to report; 1 findings (build and lint: doubtful rows,
match: hits, diff: differences); 2 wrong usage, or a file that cannot be read
or written.
)";

}  // namespace scourwell::refc
