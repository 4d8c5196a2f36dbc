// SPDX-License-Identifier: MIT
#pragma once

#include <zlib.h>

#include <optional>
#include <string>
#include <vector>

#include "backup/byte_order.h"

namespace scourwell::test {

// An archive made by hand from the description of its format, right or wrong in every field.
struct HandArchive {
  struct Item {
    int kind = 1;
    int reserved = 0;
    std::string path;
    std::string content;  // of a plain block
    std::uint32_t attributes = 0x20;
    std::uint64_t created = 1, accessed = 2, modified = 3;
    std::optional<std::uint64_t> size, offset, stored, crc, path_size;
    std::optional<std::uint64_t> block_header;
  };

  std::uint64_t identity = 0x1122334455667788;
  std::uint64_t version = 1;
  std::uint64_t number = 1;
  std::vector<std::uint64_t> volumes;  // their sizes, without their data
  std::vector<Item> items;
  std::optional<std::uint64_t> count, volume_count, data_size, index_size, trailer_identity;
  std::string behind_index;

  Item& Add(int kind, const std::string& path, const std::string& content = {}) {
    Item& item = items.emplace_back();
    item.kind = kind;
    item.path = path;
    item.content = content;
    return item;
  }

  static std::uint32_t Crc(const std::string& bytes) {
    return static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
  }

  std::string Make() const {
    std::string file("SWQZP\r\n\x1A", 8);
    PutNumber(&file, version, 4);
    PutNumber(&file, number, 4);
    PutNumber(&file, identity, 8);
    PutNumber(&file, 0, 4);
    PutNumber(&file, Crc(file), 4);
    std::string data;
    std::string list;
    for (const Item& item : items) {
      const std::uint64_t begin = data.size();
      if (!item.content.empty()) {
        PutNumber(&data, item.block_header.value_or(item.content.size() | 0x80000000u), 4);
        data += item.content;
      }
      PutNumber(&list, static_cast<std::uint64_t>(item.kind), 1);
      PutNumber(&list, static_cast<std::uint64_t>(item.reserved), 1);
      PutNumber(&list, item.path_size.value_or(item.path.size()), 2);
      PutNumber(&list, item.attributes, 4);
      PutNumber(&list, item.created, 8);
      PutNumber(&list, item.accessed, 8);
      PutNumber(&list, item.modified, 8);
      PutNumber(&list, item.size.value_or(item.content.size()), 8);
      PutNumber(&list, item.offset.value_or(begin), 8);
      PutNumber(&list, item.stored.value_or(data.size() - begin), 8);
      PutNumber(&list, item.crc.value_or(Crc(item.content)), 4);
      list += item.path;
    }
    std::string index;
    PutNumber(&index, volume_count.value_or(volumes.size()), 4);
    for (const std::uint64_t size : volumes) PutNumber(&index, size, 8);
    PutNumber(&index, count.value_or(items.size()), 4);
    index += list + behind_index;
    std::string trailer;
    PutNumber(&trailer, trailer_identity.value_or(identity), 8);
    PutNumber(&trailer, data_size.value_or(data.size()), 8);
    PutNumber(&trailer, index_size.value_or(index.size()), 8);
    PutNumber(&trailer, Crc(index), 4);
    PutNumber(&trailer, Crc(trailer), 4);
    return file + data + index + trailer + "QZPEND\r\n";
  }
};

}  // namespace scourwell::test
