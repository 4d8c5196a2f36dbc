// SPDX-License-Identifier: MIT

// A backup and its restore on a machine: what holds folders must not keep files from being written,
// and attributes and times must come back as the machine reports them.
#include "backup/extractor.h"
#include "guard/path_guard.h"
#include "tests/contract/on_disk.h"
#include "tests/helpers.h"
#include "text/text.h"

namespace scourwell::test {
namespace {

constexpr char kOwnKey[] = "machine";
constexpr FileTime kSomeTime = 125'000'000'000'000'000;
constexpr std::uint32_t kCompared = kReadOnly | kHidden | kSystem | kFolder;

// The guard of the product, to which no folder is the system's.
class HoldingGuard : public RestoreGuard {
 public:
  explicit HoldingGuard(Files& files) : guard_(files, none_) {}
  Outcome Allow(const std::string& path, HeldWay* way) override { return guard_.Allow(path, way); }

 private:
  SystemFolders none_;
  PathGuard guard_;
};

struct Planted : OnDisk {
  QuietPump pump;
  std::string spy = machine->folder() + "\\Spy Ware";
  std::string archive = machine->folder() + "\\one.qzp";

  Planted() {
    for (const char* folder : {"", "\\empty", "\\sub"}) machine->MakeFolder(spy + folder);
    Make("Spy Ware\\Evil.exe", std::string(600'000, 'e'));
    Make("Spy Ware\\sub\\none");
    Make("Spy Ware\\sub\\text.dat", "text");
    machine->SetAttributes(spy + "\\Evil.exe", kReadOnly | kHidden);
    machine->SetAttributes(spy + "\\sub\\text.dat", kSystem);
    FileTime time = kSomeTime;
    for (const char* name : {"\\sub\\none", "\\sub\\text.dat", "\\sub", "\\empty", ""}) {
      time += 600'000'000'000;
      CHECK(files.SetTimes(spy + name, {time, time + 20'000'000, time + 40'000'000}).ok());
    }
  }

  std::vector<DirEntry> Entries(const std::string& folder) {
    std::vector<DirEntry> entries;
    const auto keep = [&](const DirEntry& entry) {
      entries.push_back(entry);
      return true;
    };
    CHECK(files.List(folder + "\\*", keep).ok());
    std::sort(entries.begin(), entries.end(),
              [](const auto& a, const auto& b) { return CompareNoCase(a.name, b.name) < 0; });
    return entries;
  }
  // Name, attributes, times of files and folders and the content, in the order of the names.
  std::string Tree(const std::string& folder) {
    std::string text;
    for (const DirEntry& entry : Entries(folder)) {
      const std::string path = folder + "\\" + entry.name;
      text += path + " " + std::to_string(entry.attributes & kCompared) + " " +
              std::to_string(entry.modified) + " " + std::to_string(entry.size) + " " +
              files.Security(path) + "\n";
      std::string content;
      if (entry.IsFolder()) {
        text += Tree(path);
      } else if (files.Read(path, 1 << 20, &content).ok()) {
        text += content + "\n";
      }
    }
    return text;
  }
  void Remove(const std::string& folder) {
    for (const DirEntry& entry : Entries(folder)) {
      const std::string path = folder + "\\" + entry.name;
      CHECK(files.SetAttributes(path, 0).ok());
      if (entry.IsFolder()) {
        Remove(path);
      } else {
        CHECK(files.EraseFile(path).ok());
      }
    }
    CHECK(files.RemoveFolder(folder).ok());
  }
  // An archive of one item and a script.
  void Store(const std::string& path, std::uint64_t volume_size = 0) {
    ArchiveWriter writer(files, machine->clock(), pump);
    REQUIRE(writer.Create(archive, {volume_size, {}}).ok());
    REQUIRE(writer.AddFile(path).ok());
    REQUIRE(writer.AddScript("one.reg", "REGEDIT4\r\n").ok());
    REQUIRE(writer.Finish(kOwnKey).ok());
    CHECK(writer.result().failed.empty());
  }
  RestoreResult Restore() {
    HoldingGuard guard(files);
    ArchiveReader reader(files, pump, machine->code_pages());
    REQUIRE(reader.Open(archive, {}, kOwnKey).ok());
    Extractor extractor(files, pump, guard);
    CHECK(extractor.ExtractAll(reader).ok());
    for (const ItemReport& report : extractor.result().failed) {
      FAIL_CHECK(report.path, ": ", report.why.description());
    }
    return extractor.result();
  }
};

}  // namespace

TEST_SUITE("contract_archive") {
  TEST_CASE("a tree is stored, removed and back as it was") {
    for (const std::uint64_t volume_size : {0, 600}) {
      CAPTURE(volume_size);
      Planted p;
      p.Store(p.spy, volume_size);
      const std::string before = p.Tree(p.machine->folder());
      p.Remove(p.spy);
      const RestoreResult restored = p.Restore();
      CHECK(restored.notes.empty());
      CHECK(restored.restored == 6);
      CHECK((p.Tree(p.machine->folder()) == before));
    }
  }

  TEST_CASE("hundreds of files come back byte for byte") {
    Planted p;
    Dice dice(20040310);
    for (int i = 0; i < 359; ++i) {
      const std::string folder = p.spy + "\\sub\\" + std::to_string(i % 20);
      if (i < 20) p.machine->MakeFolder(folder);
      std::string content(dice.Below(i % 50 == 0 ? 300'000 : 3000), '\0');
      for (char& c : content) c = static_cast<char>(dice.Below(dice.Chance(3) ? 256 : 4));
      const std::string path = folder + "\\File " + std::to_string(i) + ".dat";
      p.machine->MakeFile(path, content);
      p.machine->SetAttributes(path, i % 4 ? 0u : i % 3 ? kReadOnly : kHidden);
    }
    p.Store(p.spy);
    const std::string before = p.Tree(p.machine->folder());
    p.Remove(p.spy);
    const RestoreResult restored = p.Restore();
    CHECK(restored.notes.empty());
    CHECK(restored.restored == 6 + 20 + 359);
    CHECK((p.Tree(p.machine->folder()) == before));
  }

  TEST_CASE("what is not older is kept aside, a read-only older file is replaced") {
    Planted p;
    const std::string path = p.spy + "\\sub\\text.dat";
    p.Store(path);
    p.machine->SetAttributes(path, 0);
    REQUIRE(p.files.Replace(path, "newer").ok());
    CHECK(p.Restore().kept.size() == 1);
    CHECK(p.Content("Spy Ware\\sub\\text.dat.kept") == "newer");
    p.machine->SetAttributes(path, 0);
    REQUIRE(p.files.Replace(path, "older").ok());
    CHECK(p.files.SetTimes(path, {0, 0, kSomeTime}).ok());
    p.machine->SetAttributes(path, kReadOnly | kHidden | kSystem);
    CHECK(p.Restore().kept.empty());
    CHECK(p.Content("Spy Ware\\sub\\text.dat") == "text");
    DirEntry entry;
    CHECK(p.Stat("Spy Ware\\sub\\text.dat", &entry) == kNoError);
    CHECK((entry.attributes & kCompared) == kSystem);
  }
}

}  // namespace scourwell::test
