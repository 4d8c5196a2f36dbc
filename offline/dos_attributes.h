// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/files.h"

namespace scourwell {

// Where a volume keeps the attributes that Windows knows of an item.
enum class AttributeStore : std::uint8_t {
  Ntfs,   // the drivers of NTFS show them as they are
  Fat,    // the driver of FAT is asked through the open item
  Named,  // beside the item, as file servers and Wine keep them on volumes of this system
};

AttributeStore AttributeStoreOf(int root);

// An item without being opened: its folder, as an open file, and its name there.
struct ItemName {
  int folder;
  const char* name;
};

// Some of kReadOnly, kHidden, kSystem, kFolder and kArchive; `mode` is the one that the system
// tells.
std::uint32_t DosAttributes(AttributeStore store, const ItemName& item, unsigned mode);
Outcome SetDosAttributes(AttributeStore store, const ItemName& item, std::uint32_t attributes);
// NTFS alone keeps a time of making that can be set, and who may do what; elsewhere both are
// nothing.
void SetCreationTime(AttributeStore store, const ItemName& item, FileTime time);
std::string SecurityOf(AttributeStore store, const ItemName& item);
Outcome SetSecurityOf(AttributeStore store, const ItemName& item, const std::string& descriptor);
// The 8.3 name; empty where nobody tells.
std::string ShortNameOf(AttributeStore store, const ItemName& item);

}  // namespace scourwell
