// SPDX-License-Identifier: MIT

// refc: compiles, prints and checks definitions. See docs/definitions.md.
#include <cstdio>
#include <new>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

#include "refc/commands.h"

namespace {

scourwell::refc::Put WriterTo(std::FILE* stream) {
  return [stream](std::string_view text) { std::fwrite(text.data(), 1, text.size(), stream); };
}

}  // namespace

int main(int count, char** words) {
  using namespace scourwell::refc;
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);  // the same bytes on every system
  _setmode(_fileno(stderr), _O_BINARY);
#endif
  const std::unique_ptr<Disk> disk = MakeDisk();
  int code = kUnusable;
  try {
    code = Run({words + 1, words + count}, *disk, {WriterTo(stdout), WriterTo(stderr)});
  } catch (const std::bad_alloc&) {
    std::fputs("refc: not enough memory\n", stderr);
  }
  if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return code;
  std::fputs("refc: the output could not be written\n", stderr);
  return kUnusable;
}
