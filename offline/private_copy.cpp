// SPDX-License-Identifier: MIT
#include "offline/private_copy.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace scourwell {

UniqueFd NewPrivateFile() {
  const char* folder = std::getenv("TMPDIR");
  std::string path = std::string(folder && *folder ? folder : "/tmp") + "/scourwell-XXXXXX";
  UniqueFd file(mkostemp(path.data(), O_CLOEXEC));
  if (file) unlink(path.c_str());
  return file;
}

std::string PathOf(const UniqueFd& copy) { return "/proc/self/fd/" + std::to_string(copy.get()); }

Outcome CopyPrivately(Files& files, const std::string& path, UniqueFd* copy) {
  UniqueFd file = NewPrivateFile();
  if (!file) return FailedWithErrno();
  Outcome written;
  Outcome read = files.ReadBlocks(path, [&](std::string_view block) {
    while (!block.empty() && written.ok()) {
      const ssize_t portion = write(file.get(), block.data(), block.size());
      if (portion < 0 && errno == EINTR) continue;
      if (portion <= 0) {
        written = FailedWithErrno();
      } else {
        block.remove_prefix(static_cast<std::size_t>(portion));
      }
    }
    return written.ok();
  });
  if (!read.ok()) return read;
  if (written.ok()) *copy = std::move(file);
  return written;
}

}  // namespace scourwell
