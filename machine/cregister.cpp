// SPDX-License-Identifier: MIT
#include "machine/cregister.h"

#include "text/paths.h"
#include "text/text.h"

namespace scourwell {

void CRegister::DeleteEntry(RootKey root, std::string_view path, const std::string& name,
                            RegStatus* status) {
  const std::string key = SplitKeyPath(path);
  if (name.empty()) {
    *status = key.empty() ? kRegInvalidParameter : registry_.DeleteKeyCall(root, key);
  } else {
    *status = registry_.DeleteValue(root, key, name == "*" ? "" : name);
  }
}

std::string CRegister::QueryString(RootKey root, std::string_view path, const std::string& name) {
  RegValue value;
  if (registry_.QueryValue(root, SplitKeyPath(path), name, &value) != kRegOk) return {};
  if (value.type != kRegText && value.type != kRegExpandText && value.type != kRegMultiText) {
    return {};
  }
  return std::string(TrimNull(value.data));
}

RegStatus CRegister::SetString(RootKey root, std::string_view path, const std::string& name,
                               const std::string& text) {
  return registry_.SetValue(root, SplitKeyPath(path), name, {kRegText, text});
}

std::string CRegister::SplitKeyPath(std::string_view path) {
  if (BeginsWithSeparator(path)) path.remove_prefix(1);
  if (EndsInSeparator(path)) path.remove_suffix(1);
  return std::string(path);
}

}  // namespace scourwell
