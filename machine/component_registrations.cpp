// SPDX-License-Identifier: MIT
#include "machine/component_registrations.h"

#include <algorithm>

#include "machine/environment.h"
#include "machine/file_utils.h"
#include "machine/real_path.h"
#include "machine/registry_place.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell {

// Thousands of classes name libraries: only those that can mean the file cost a look at the disk.
bool ComponentRegistrations::Name(const std::string& path) {
  if (!libraries_) Read();
  const std::string real = RealPath(files_, path);
  const std::string_view name = FileNamePart(real);
  return std::any_of(libraries_->begin(), libraries_->end(), [&](const std::string& library) {
    const std::string_view other = FileNamePart(library);
    if (!EqualsNoCase(other, name) && other.find('~') == other.npos) return false;
    return EqualsNoCase(RealPath(files_, library), real);
  });
}

void ComponentRegistrations::Read() {
  std::vector<std::string> classes;
  registry_.EnumKeys(RootKey::ClassesRoot, "CLSID", [&](const std::string& name) {
    classes.push_back(name);
    return true;
  });
  libraries_.emplace();
  for (const std::string& each : classes) {
    RegValue value;
    const std::string key = "CLSID\\" + each + "\\InprocServer32";
    if (registry_.QueryValue(RootKey::ClassesRoot, key, "", &value) != kRegOk) continue;
    std::string library = LibraryOf(value);
    if (IsOwnGround(library, folders_)) libraries_->push_back(std::move(library));
  }
}

// A bare name is the system's own library of that name, wherever else a file is called so.
std::string ComponentRegistrations::LibraryOf(const RegValue& value) const {
  if (value.type != kRegText && value.type != kRegExpandText) return {};
  const std::string text = ExpandEnvironment(ValueToText(value), system_);
  std::string_view library = TrimBlanks(text);
  if (library.size() >= 2 && library.front() == '"' && library.back() == '"') {
    library = library.substr(1, library.size() - 2);
  }
  if (library.empty() || IsAbsolutePath(library)) return std::string(library);
  return AddPathToFileName(folders_.system, library);
}

}  // namespace scourwell
