// SPDX-License-Identifier: MIT
#include "tests/contract/plain_loop.h"

#include <set>

#include "text/paths.h"
#include "text/unicode.h"

namespace scourwell::test {
namespace {

constexpr const char* kNames[] = {
    "a",          "ab",      "abc.exe",      "Toolbar",          "toolbar.dll",
    "x1.EXE",     "x12.exe", "no_ext",       "long file name.x", "Long Folder One",
    ".hidden",    "b",       "two.dots.txt", "long folder two",  "a.b",
    "RECYCLER",   "abcabcd", "abcd",         "caf\u00E9.exe",    "CAF\u00C9",
    "tilde~1.ex", "[x]@{1}", "a+b;c,d.exe",  "blank inside"};

std::vector<DirEntry> Listing(Files& files, const std::string& pattern) {
  std::vector<DirEntry> entries;
  static_cast<void>(files.List(pattern, [&](const DirEntry& entry) {
    entries.push_back(entry);
    return true;
  }));
  return entries;
}

std::string RandomName(Dice& dice, const std::vector<std::string>& short_names) {
  constexpr const char* kOdd[] = {"*",         "*.*", "*.",       "?",     "*.exe",
                                  "x?.*",      "*o*", "a*.",      "ab*.*", "toolbar.",
                                  "abc.exe. ", "*~*", "??????~?", "*.*.*"};
  if (dice.Chance(5)) return dice.Pick(kOdd);
  const bool by_short_name = !short_names.empty() && dice.Chance(5);
  std::string name = by_short_name ? dice.Pick(short_names) : dice.Pick(kNames);
  if (dice.Chance(3)) name = Upper(name);
  if (dice.Chance(3) && IsAscii(name)) name[dice.Below(name.size())] = '?';
  if (dice.Chance(3) && IsAscii(name)) {
    const std::size_t at = dice.Below(name.size() + 1);
    name.replace(at, dice.Below(name.size() - at + 1), "*");
  }
  return name;
}

std::string RandomSignature(Dice& dice, const std::vector<std::string>& short_names) {
  constexpr const char* kRefused[] = {"..\\a", "C:\\x", "a|b", "nul", "a/b", "a*\\b", "a\\", "."};
  if (dice.Chance(20)) return dice.Pick(kRefused);
  std::string signature = RandomName(dice, short_names);
  while (dice.Chance(4)) {
    const bool by_short_name = !short_names.empty() && dice.Chance(4);
    const std::string parent = by_short_name ? dice.Pick(short_names) : dice.Pick(kNames);
    signature = (dice.Chance(2) ? parent : Upper(parent)) + "\\" + signature;
  }
  return signature;
}

class Loop {
 public:
  Loop(Files& files, const DefinitionList<SearchedName>& list, FindingSink& sink)
      : files_(files), list_(list), sink_(sink) {}

  void Walk(const std::string& folder) {
    for (const SearchedName& row : list_) Search(folder, row);
    for (const DirEntry& entry : Listing(files_, folder + "\\*.*")) {
      if (entry.IsFolder() && !entry.IsLink()) Walk(folder + "\\" + entry.name);
    }
  }

 private:
  void Search(const std::string& folder, const SearchedName& row) {
    std::string signature(row.name);
    // Dots and blanks at the end of a plain name are nobody's.
    if (FileNamePart(signature).find_first_of("*?") == std::string_view::npos) {
      signature.erase(signature.find_last_not_of(". ") + 1);
    }
    if (!IsUsable(signature) || LeadsThroughLink(folder, signature)) return;
    const std::size_t slash = signature.rfind('\\');
    const std::string prefix =
        slash == std::string::npos || slash == 0 ? "" : signature.substr(0, slash + 1);
    for (const DirEntry& entry : Listing(files_, folder + "\\" + signature)) {
      const std::string path = folder + "\\" + prefix + entry.name;
      if (entry.IsFolder() != (row.item == DiskItem::Folder)) continue;
      Add(row, entry.IsFolder() ? FoundObject(FoundFolder{path}) : FoundFile{path});
      if (!entry.IsFolder() || entry.IsLink()) continue;
      for (const DirEntry& file : Listing(files_, path + "\\*.*")) {
        if (!file.IsFolder()) Add(row, FoundFile{path + "\\" + file.name});
      }
    }
  }

  bool LeadsThroughLink(const std::string& folder, const std::string& signature) {
    for (std::size_t at = signature.find('\\'); at != std::string::npos;
         at = signature.find('\\', at + 1)) {
      DirEntry entry;
      if (at > 0 && files_.Stat(folder + "\\" + signature.substr(0, at), &entry).ok() &&
          entry.IsLink()) {
        return true;
      }
    }
    return false;
  }

  void Add(const SearchedName& row, const FoundObject& object) {
    ReportOnce(sink_, object, {row.spy});
  }

  Files& files_;
  const DefinitionList<SearchedName>& list_;
  FindingSink& sink_;
};

}  // namespace

std::string PlainLoop(Files& files, const DefinitionList<SearchedName>& list,
                      const std::string& folder) {
  CollectingSink found;
  PlainLoop(files, list, folder, found);
  return found.lines();
}

void PlainLoop(Files& files, const DefinitionList<SearchedName>& list, const std::string& folder,
               FindingSink& sink) {
  Loop(files, list, sink).Walk(folder);
}

bool IsUsable(const std::string& signature) {
  for (const char* refused : {"..", ":", "|", "/", "<"}) {
    if (signature.find(refused) != std::string::npos) return false;
  }
  const std::size_t slash = signature.rfind('\\');
  const bool nested = slash != std::string::npos;
  const std::string name = nested ? signature.substr(slash + 1) : signature;
  const bool below = nested && slash > 0;
  // Wildcards alone find everything in a folder that is named, and else nothing.
  return name.find_first_not_of(below ? ". " : "*?. ") != std::string::npos &&
         Upper(name) != "NUL" &&
         (!nested || signature.substr(0, slash).find_first_of("*?") == std::string::npos);
}

std::vector<TreeItem> RandomTree(Dice& dice, const std::string& root, std::size_t most_items) {
  std::vector<TreeItem> tree;
  std::vector<std::string> folders = {root};
  std::set<std::string, NoCaseLess> taken;
  for (; most_items > 0; --most_items) {
    const std::string path = dice.Pick(folders) + "\\" + dice.Pick(kNames);
    if (!taken.insert(path).second) continue;
    tree.push_back({path, dice.Chance(3)});
    if (tree.back().folder) folders.push_back(path);
  }
  return tree;
}

std::vector<std::string> ShortNames(Files& files, const std::string& folder) {
  std::vector<std::string> names;
  for (const DirEntry& entry : Listing(files, folder + "\\*.*")) {
    if (!entry.short_name.empty()) names.push_back(entry.short_name);
    if (!entry.IsFolder() || entry.IsLink()) continue;
    for (std::string& name : ShortNames(files, folder + "\\" + entry.name)) {
      names.push_back(std::move(name));
    }
  }
  return names;
}

std::vector<std::string> FillRandomRows(Dice& dice, std::size_t count,
                                        const std::vector<std::string>& short_names,
                                        DefinitionList<SearchedName>* list) {
  std::vector<std::string> signatures;
  for (std::size_t row = 0; row < count; ++row) {
    const bool repeat = !signatures.empty() && dice.Chance(8);
    signatures.push_back(repeat ? dice.Pick(signatures) : RandomSignature(dice, short_names));
    list->Add({std::to_string(row), signatures.back(),
               dice.Chance(3) ? DiskItem::Folder : DiskItem::File});
  }
  return signatures;
}

}  // namespace scourwell::test
