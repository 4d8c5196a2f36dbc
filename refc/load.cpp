// SPDX-License-Identifier: MIT
#include "refc/load.h"

#include "refc/reference_reader.h"
#include "refc/source_reader.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell::refc {
namespace {

std::string_view FileName(std::string_view path) {
  path = FileNamePart(path);
  return path.substr(path.rfind('/') + 1);  // npos + 1 is 0
}

bool HasExtension(std::string_view path, std::string_view extension) {
  return path.size() > extension.size() && EndsWithNoCase(path, extension);
}

bool LoadFile(Disk& disk, const std::string& path, DefinitionSet* set, Findings* findings) {
  std::optional<std::string> content = disk.Read(path);
  if (!content) return false;
  if (HasExtension(path, ".ref")) {
    ReadReference(path, std::move(*content), set, findings);
  } else {
    ReadSource(path, Stem(path), std::move(*content), set, findings);
  }
  return true;
}

}  // namespace

std::string_view Stem(std::string_view path) {
  path = FileName(path);
  return path.substr(0, path.rfind('.'));
}

bool Load(Disk& disk, const std::string& path, DefinitionSet* set, Findings* findings,
          std::string* unreadable) {
  *unreadable = path;
  if (!disk.IsFolder(path)) return LoadFile(disk, path, set, findings);
  bool any = false;
  for (const std::string& name : disk.List(path)) {
    if (!HasExtension(name, ".tsv")) continue;
    any = true;
    *unreadable = path + "/" + name;
    if (!LoadFile(disk, *unreadable, set, findings)) return false;
  }
  if (!any) *unreadable = path;
  return any;
}

}  // namespace scourwell::refc
