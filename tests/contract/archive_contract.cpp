// A backup and its restore on a machine: what holds folders must not keep files from being written,
// and attributes and times must come back as the machine reports them.
#include <doctest/doctest.h>

#include <map>

#include "backup/extractor.h"
#include "platform/file_utils.h"
#include "platform/text.h"
#include "tests/contract/contract.h"

namespace scourwell::test {
namespace {

constexpr FileTime kSomeTime = 125'000'000'000'000'000;
constexpr std::uint32_t kCompared = kReadOnly | kHidden | kSystem | kFolder;

class QuietPump : public Pump {
 protected:
  void YieldNow() override {}
};

class HoldingGuard : public RestoreGuard {
 public:
  explicit HoldingGuard(Files& files) : files_(files) {}
  Outcome Allow(const std::string& path, std::vector<std::unique_ptr<FolderHold>>* holds) override {
    for (std::size_t end = path.find('\\', 3); end != path.npos; end = path.find('\\', end + 1)) {
      std::unique_ptr<FolderHold> hold;
      const Outcome held = files_.HoldFolder(path.substr(0, end), &hold);
      if (held.number() == kFileNotFound) break;
      if (!held.ok()) return held;
      holds->push_back(std::move(hold));
    }
    return {};
  }

 private:
  Files& files_;
};

struct Planted {
  std::unique_ptr<ContractMachine> machine = NewContractMachine();
  Files& files = machine->files();
  QuietPump pump;
  std::string spy = machine->folder() + "\\Spy Ware";
  std::string archive = machine->folder() + "\\one.qzp";

  Planted() {
    machine->MakeFolder(spy);
    machine->MakeFolder(spy + "\\empty");
    machine->MakeFolder(spy + "\\sub");
    machine->MakeFile(spy + "\\Evil.exe", std::string(600'000, 'e'));
    machine->MakeFile(spy + "\\sub\\none", "");
    machine->MakeFile(spy + "\\sub\\text.dat", "text");
    machine->SetAttributes(spy + "\\Evil.exe", kReadOnly | kHidden);
    machine->SetAttributes(spy + "\\sub\\text.dat", kSystem);
    FileTime time = kSomeTime;
    for (const char* name : {"\\sub\\none", "\\sub\\text.dat", "\\sub", "\\empty", ""}) {
      time += 600'000'000'000;
      CHECK(files.SetTimes(spy + name, {time, time + 20'000'000, time + 40'000'000}).ok());
    }
  }

  // Name, attributes, times of files and folders and the content, in the order of the names.
  std::string Tree(const std::string& folder) {
    std::map<std::string, DirEntry> entries;
    CHECK(files
              .List(folder + "\\*",
                    [&](const DirEntry& entry) {
                      entries[Upper(entry.name)] = entry;
                      return true;
                    })
              .ok());
    std::string text;
    for (const auto& [name, entry] : entries) {
      const std::string path = folder + "\\" + entry.name;
      text += path + " " + std::to_string(entry.attributes & kCompared) + " " +
              std::to_string(entry.modified) + " " + std::to_string(entry.size) + "\n";
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
    std::vector<DirEntry> entries;
    CHECK(files
              .List(folder + "\\*",
                    [&](const DirEntry& entry) {
                      entries.push_back(entry);
                      return true;
                    })
              .ok());
    for (const DirEntry& entry : entries) {
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
  RestoreResult Restore() {
    HoldingGuard guard(files);
    ArchiveReader reader(files, pump);
    REQUIRE(reader.Open(archive).ok());
    Extractor extractor(files, pump, guard);
    CHECK(extractor.ExtractAll(reader, machine->folder()).ok());
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
      ArchiveWriter writer(p.files, p.machine->clock(), p.pump);
      ArchiveOptions options;
      options.volume_size = volume_size;
      REQUIRE(writer.Create(p.archive, options).ok());
      REQUIRE(writer.AddFile(p.spy).ok());
      REQUIRE(writer.AddScript("one.reg", "REGEDIT4\r\n").ok());
      REQUIRE(writer.Finish().ok());
      CHECK(writer.result().failed.empty());
      const std::string before = p.Tree(p.machine->folder());
      p.Remove(p.spy);
      const RestoreResult restored = p.Restore();
      CHECK(restored.notes.empty());
      CHECK(restored.restored == 6);
      REQUIRE(restored.scripts.size() == 1);
      CHECK(p.files.EraseFile(restored.scripts[0]).ok());
      CHECK((p.Tree(p.machine->folder()) == before));
    }
  }

  TEST_CASE("what is not older is kept aside, a read-only older file is replaced") {
    Planted p;
    ArchiveWriter writer(p.files, p.machine->clock(), p.pump);
    REQUIRE(writer.Create(p.archive).ok());
    REQUIRE(writer.AddFile(p.spy + "\\sub\\text.dat").ok());
    REQUIRE(writer.Finish().ok());
    const std::string path = p.spy + "\\sub\\text.dat";
    p.machine->SetAttributes(path, 0);
    REQUIRE(p.files.Replace(path, "newer").ok());
    CHECK(p.Restore().kept.size() == 1);
    std::string content;
    CHECK(p.files.Read(path + ".kept", 100, &content).ok());
    CHECK(content == "newer");
    p.machine->SetAttributes(path, 0);
    REQUIRE(p.files.Replace(path, "older").ok());
    CHECK(p.files.SetTimes(path, {0, 0, kSomeTime}).ok());
    p.machine->SetAttributes(path, kReadOnly | kHidden | kSystem);
    CHECK(p.Restore().kept.empty());
    CHECK(p.files.Read(path, 100, &content).ok());
    CHECK(content == "text");
    DirEntry entry;
    CHECK(p.files.Stat(path, &entry).ok());
    CHECK((entry.attributes & kCompared) == kSystem);
  }
}

}  // namespace scourwell::test
