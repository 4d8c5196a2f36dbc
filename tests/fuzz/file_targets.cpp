// SPDX-License-Identifier: MIT
#include "backup/ignore_list.h"
#include "definitions/catalogue.h"
#include "definitions/list_loader.h"
#include "definitions/reference_file.h"
#include "definitions/spy_categories.h"
#include "engine/language.h"
#include "machine/version_resource.h"
#include "tests/fake/version_block.h"
#include "tests/fuzz/targets.h"
#include "tests/refc_support.h"
#include "tests/restore_support.h"
#include "tools/profile_file.h"

namespace scourwell::test {
namespace {

std::vector<std::string> ReferenceSeeds() {
  return {Tool().Build("s.tsv",
                       "[spyware]\nA\tfile\tevil*.exe\ts\nB\tfolder\tbad\\folder\ts\n"
                       "C\tvalue\tHKEY_USERS\\a\\\\b\ts\n[trojans]\nD\tcookie\tx\ts\n")};
}

// No loader takes a row whose text is empty, whatever stands in the file.
void RunReference(std::string_view bytes) {
  class NoBar : public LoadProgress {
    void Begin(int) override {}
    void Advance() override {}
    void End() override {}
  } bar;
  Bench b;
  b.m.File("C:\\App\\Ini\\update.ref", std::string(bytes));
  ReferenceFile reference(b.m.files, b.m.clock, b.log, b.settings, kAppFolder);
  DefinitionLists lists;
  SystemFolders folders;
  ListLoader loader(reference, lists, bar, b.m.pump, b.log, folders);
  for (const Loader* each : {&kUpdateTrojanList, &kUpdateSpyFileList, &kUpdateSpyFolderList,
                             &kUpdateRegistrySVList, &kUpdateRegistryKList, &kUpdateCookieList,
                             &kUpdateMemoryList, &kUpdateSearchByFileChecSum}) {
    loader.Load(*each);
  }
  loader.removeFromList();
  SpyCategories().Load(reference);
  for (const auto& row : lists.searched) Demand(!row.name.empty(), "searched names are not empty");
}

std::vector<std::string> PackSeeds() {
  return {
      "[Language Pack]\r\nCodePage=1252\r\n[Adware Language "
      "Pack]\r\n1805=\"Scan\"\r\n1882=Folders\xE4\r\n"};
}

void RunPack(std::string_view bytes) {
  Bench b;
  b.m.File("C:\\App\\Lang\\English.ini", std::string(bytes));
  b.settings.LanguageFile = "English.ini";
  const Language language(b.m.files, b.m.clock, b.m.code_pages, b.log, b.settings, kAppFolder);
  for (const char* number : {"1805", "1882", "CodePage", ""}) {
    const std::string text = language.SetCaptionfromINI(number, "fallback");
    Demand(text.size() <= 4 * 499, "captions are cut");
  }
}

std::vector<std::string> IgnoreSeeds() {
  return {"\"Spy File\",\"C:\\a.exe\",\"s\"\r\n\"Registry Key\",\"HKEY_USERS\\a\",\"t\"\r\n",
          "Spy File, C:\\b, s\r\n\"open"};
}

void RunIgnoreList(std::string_view bytes) {
  for (const IgnoreRecord& record : ParseIgnoreRecords(bytes)) {
    if (!CanBeIgnored(record)) continue;
    const auto again = ParseIgnoreRecords(IgnoreLine(record));
    Demand(again.size() == 1 && again[0].kind == record.kind &&
               again[0].details == record.details && again[0].system == record.system,
           "a record that may be kept is read as it was written");
  }
}

std::vector<std::string> ProfileSeeds() {
  FakeCodePages pages;
  return {ProfileText({{{"Tray", "enabled", "HKCU Run", "user", "start", "C:\\t.exe /x"}},
                       {{"a\nb", "disabled", "x", "y", "z", "hex(3):0102"}}},
                      pages)};
}

void RunProfile(std::string_view bytes) {
  FakeCodePages pages;
  const ProfileReading read = ReadProfileText(bytes, pages);
  const ProfileReading again = ReadProfileText(ProfileText(read.records, pages), pages);
  Demand(again.left_over == 0 && again.records.size() == read.records.size(),
         "a profile that is written anew is whole");
  for (std::size_t i = 0; i < read.records.size(); ++i) {
    Demand(again.records[i].fields == read.records[i].fields, "its fields are the same");
  }
}

std::vector<std::string> VersionSeeds() {
  VersionBlock block;
  for (const std::string_view name : kVersionFieldNames) block.Text(std::string(name), "some");
  std::vector<std::string> seeds = {block.Make()};
  block.wide = false;
  seeds.push_back(block.Make());
  return seeds;
}

void RunVersion(std::string_view bytes) {
  FakeVersions versions;
  const VersionResource resource(bytes, versions);
  for (std::size_t i = 0; i < kVersionFields; ++i) {
    Demand(resource.Text(static_cast<VersionField>(i)).value_or("").size() <= 4 * bytes.size(),
           "texts come out of the block");
  }
}

std::vector<std::string> ArchiveSeeds() {
  ArchiveBench b;
  b.m.File("C:\\spy\\a", "content");
  b.m.File("C:\\spy\\sub\\b", std::string(3000, 'b'));
  if (!b.Store({"C:\\spy\\a", "C:\\spy\\sub\\b"}).ok()) return {};
  return {b.m.Content(kArchivePath)};
}

void RunArchive(std::string_view bytes) {
  RestoreBench b;
  b.m.File("C:\\keep\\a", "precious").modified = ~0ull;
  b.guard.refused = {"C:\\keep"};
  const std::string kept = b.Tree("C:\\keep");
  b.m.File(kArchivePath).content = bytes;
  static_cast<void>(b.Restore());
  Demand(b.Tree("C:\\keep") == kept, "what is protected is not touched");
}

constexpr FuzzTarget kTargets[] = {
    {"reference", ReferenceSeeds, RunReference}, {"pack", PackSeeds, RunPack},
    {"ignore_list", IgnoreSeeds, RunIgnoreList}, {"profile", ProfileSeeds, RunProfile},
    {"version", VersionSeeds, RunVersion},       {"archive", ArchiveSeeds, RunArchive},
};

}  // namespace

std::span<const FuzzTarget> FileTargets() { return kTargets; }

}  // namespace scourwell::test
