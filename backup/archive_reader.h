// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "backup/archive_writer.h"
#include "backup/volume_reader.h"
#include "platform/code_pages.h"
#include "platform/pump.h"

namespace scourwell {

// Reads one backup archive. Nothing in it is trusted: memory is bounded by the size of the file
// and by kLargestIndex, and content is only right once it was read to its end.
class ArchiveReader {
 public:
  // Gets the next bytes of an item; a failure ends the reading with it.
  using Sink = std::function<Outcome(std::string_view block)>;

  ArchiveReader(Files& files, Pump& pump, CodePages& code_pages)
      : pump_(pump), code_pages_(code_pages), volumes_(files) {}

  // Once. Reads the index alone, which lies in the last piece ("name.qzp"). Other volumes are
  // looked for beside it first, then where `find` says. kTypeMismatch: no archive, or another
  // version; kPastEndOfFile: cut off; kDeviceError: damaged. `key`: of this machine.
  Outcome Open(const std::string& path, FindVolume find = {}, const std::string& key = {});

  // What the archive claims: paths may be hostile, see IsStorablePath and IsScriptName.
  const std::vector<ArchiveItem>& items() const { return index_.items; }
  const std::vector<ArchiveSpy>& spies() const { return index_.spies; }
  // False as well for what is older than the marks.
  bool made_here() const { return volumes_.made_here(); }
  // How many pieces the archive has.
  std::size_t volumes() const { return volumes_.volumes(); }

  // Yields once a block. Size and CRC are checked at the end, after the last call of the sink:
  // until this has succeeded, the content may be wrong.
  Outcome ReadItem(std::size_t item, const Sink& sink);
  // Reads everything and lists what is damaged.
  std::vector<ItemReport> Verify();

 private:
  Outcome ReadBlock(const ArchiveItem& item, std::uint64_t* at, std::size_t size,
                    std::string_view* plain);

  Pump& pump_;
  CodePages& code_pages_;
  VolumeReader volumes_;
  ArchiveIndex index_;
  std::string stored_;
  std::string plain_;
};

}  // namespace scourwell
