#pragma once

#include <string>
#include <string_view>

#include "platform/text.h"

namespace scourwell {

// Gives captions their access keys, in whatever language they come: each gets an "&" before its
// first letter that is still free. A caption that has one already keeps it.
class AccessKeys {
 public:
  // `taken`: captions whose keys belong to others, such as the titles of the menu bar.
  explicit AccessKeys(std::initializer_list<std::string> taken = {}) {
    for (const std::string& caption : taken) Take(caption);
  }

  std::string Add(const std::string& caption) {
    if (Take(caption)) return caption;
    for (std::size_t i = 0; i < caption.size(); ++i) {
      const char key = Fold(caption[i]);
      if (key < 'A' || key > 'Z' || used_.find(key) != used_.npos) continue;
      used_ += key;
      return caption.substr(0, i) + "&" + caption.substr(i);
    }
    return caption;
  }

 private:
  // True when the caption names its key itself.
  bool Take(std::string_view caption) {
    const std::size_t at = caption.find('&');
    if (at == caption.npos || at + 1 >= caption.size() || caption[at + 1] == '&') return false;
    used_ += Fold(caption[at + 1]);
    return true;
  }

  std::string used_;
};

}  // namespace scourwell
