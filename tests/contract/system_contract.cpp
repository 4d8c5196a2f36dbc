// SPDX-License-Identifier: MIT
#include <doctest/doctest.h>

#include <algorithm>
#include <vector>

#include "machine/version_resource.h"
#include "tests/contract/contract.h"
#include "text/paths.h"
#include "text/text.h"

namespace scourwell::test {
namespace {

constexpr std::uint32_t kNobody = 0x7FFFFFF4;

struct OnSystem {
  std::unique_ptr<ContractMachine> machine = NewContractMachine();
  System& system = machine->system();

  bool IsFolder(const std::string& path) {
    DirEntry entry;
    return machine->files().Stat(path, &entry).ok() && entry.IsFolder();
  }
  std::string KernelLibrary() { return system.SystemFolder() + "\\kernel32.dll"; }
};

}  // namespace

TEST_SUITE("contract_system") {
  TEST_CASE("folders stand there without a separator behind them, the temporary one with it") {
    OnSystem s;
    for (const std::string& folder :
         {s.system.WindowsFolder(), s.system.SystemFolder(), s.system.ShellFolder(kUserFiles)}) {
      CAPTURE(folder);
      CHECK(IsAbsolutePath(folder));
      CHECK_FALSE(EndsInSeparator(folder));
      CHECK(s.IsFolder(folder));
    }
    std::string temporary = s.system.TemporaryFolder();
    REQUIRE(EndsInSeparator(temporary));
    temporary.pop_back();
    CHECK_FALSE(EndsInSeparator(temporary));
    CHECK(s.IsFolder(temporary));
    CHECK(s.system.ShellFolder(9999) == "");
  }

  TEST_CASE("variables are found whatever their case, and whole") {
    OnSystem s;
    CHECK(s.system.Environment("ScourwellNone") == "");
    for (const std::string& value : {std::string("C:\\My Files"), std::string(5000, 'x')}) {
      s.machine->SetEnvironment("ScourwellSome", value);
      CHECK(s.system.Environment("SCOURWELLsome") == value);
    }
    CHECK(EqualsNoCase(s.system.Environment("windir"), s.system.WindowsFolder()));
  }

  TEST_CASE("both records name the same system, the basic one no service pack") {
    OnSystem s;
    VersionRecord basic, extended;
    REQUIRE(s.system.QueryVersion(kBasicVersionRecord, &basic));
    CHECK(basic.major >= 3);
    CHECK((basic.service_pack_major == 0 && basic.suite_mask == 0 && basic.product_type == 0));
    if (!s.system.QueryVersion(kExtendedVersionRecord, &extended)) return;
    CHECK(extended.major == basic.major);
    CHECK(extended.build == basic.build);
    CHECK(extended.platform == basic.platform);
    CHECK(extended.csd_version == basic.csd_version);
  }

  TEST_CASE("the system says what an error of its own means, and nothing of another's") {
    OnSystem s;
    CHECK(s.system.ErrorText(5) != "");
    CHECK(s.system.ErrorText(0x2BADC0DE) == "");
  }

  TEST_CASE("nobody cannot be ended") {
    CHECK_FALSE(OnSystem().system.TerminateProcess(kNobody, [] { return true; }).ok());
  }

  TEST_CASE("the NT family notes what goes at the next start, the other one refuses") {
    OnSystem s;
    const std::string path = s.machine->folder() + "\\used.dll";
    s.machine->MakeFile(path, "x");
    const bool notes = s.machine->holds_any_name();
    CHECK(s.system.DeleteAtReboot(path).ok() == notes);
    CHECK_FALSE(s.system.DeleteAtReboot("used.dll").ok());
    CHECK(s.machine->DeletedAtReboot() == (notes ? path + "\n" : ""));
    DirEntry entry;
    CHECK(s.machine->files().Stat(path, &entry).ok());
  }
}

TEST_SUITE("contract_processes") {
  TEST_CASE("this very program is listed once, by its own number") {
    OnSystem s;
    Processes& processes = s.machine->processes();
    for (const bool by_status : {true, false}) {
      CAPTURE(by_status);
      std::vector<std::string> own;
      int others = 0;
      const auto visit = [&](const ProcessEntry& process) {
        process.id == s.system.OwnProcessId() ? own.push_back(process.path) : void(++others);
        CHECK(process.path != "");
        return true;
      };
      REQUIRE((by_status ? processes.ListByStatus(visit) : processes.ListBySnapshot(visit)).ok());
      REQUIRE(own.size() == 1);
      // A snapshot names the bare file on some systems.
      CHECK(EqualsNoCase(FileNamePart(own[0]), FileNamePart(s.machine->OwnPath())));
      if (by_status) CHECK(EqualsNoCase(own[0], s.machine->OwnPath()));
      CHECK(others > 0);
    }
  }

  TEST_CASE("a listing ends when its visitor has seen enough") {
    OnSystem s;
    int visits = 0;
    const auto visit = [&](const ProcessEntry&) { return ++visits < 0; };
    CHECK(s.machine->processes().ListByStatus(visit).ok());
    CHECK(s.machine->processes().ListBySnapshot(visit).ok());
    CHECK(visits == 2);
  }

  TEST_CASE("the modules of a process begin with its image; nobody has any") {
    OnSystem s;
    const auto modules = s.machine->processes().Modules(s.system.OwnProcessId());
    REQUIRE(modules.size() > 1);
    CHECK(EqualsNoCase(modules[0], s.machine->OwnPath()));
    CHECK(s.machine->processes().Modules(kNobody).empty());
  }
}

TEST_SUITE("contract_versions") {
  TEST_CASE("the block of a library can be read; a file without one has none") {
    OnSystem s;
    Versions& versions = s.machine->versions();
    const std::string plain = s.machine->folder() + "\\plain.exe";
    s.machine->MakeFile(plain, "no program");
    std::string block = "(unchanged)";
    CHECK(versions.ReadBlock(plain, &block).code() == kFileNotFound);
    CHECK(versions.ReadBlock(s.machine->folder() + "\\none.exe", &block).code() == kFileNotFound);
    CHECK(versions.ReadBlock(s.machine->folder(), &block).code() == kFileNotFound);
    CHECK(block == "(unchanged)");
    REQUIRE(versions.ReadBlock(s.KernelLibrary(), &block).ok());
    const VersionResource resource(block, versions);
    REQUIRE(resource.Fixed());
    CHECK(resource.Fixed()->file_version_high != 0);
    CHECK(resource.translation().size() == 8);
    CHECK(StartsWithNoCase(resource.Text(kOriginalFileName).value_or(""), "kernel32"));
  }

  TEST_CASE("texts of 16-bit files are those of the system's code page") {
    OnSystem s;
    const std::string bytes = "Caf\xE9 \xB3";
    std::string text;
    REQUIRE(s.machine->code_pages().Decode(s.machine->code_pages().System(), bytes, &text).ok());
    CHECK(s.machine->versions().FromAnsi(bytes) == text);
  }
}

TEST_SUITE("contract_pump") {
  TEST_CASE("long work lets messages through until one of them stops it") {
    const auto machine = NewContractMachine();
    Pump& pump = machine->pump();
    bool came = false;
    machine->Post([&] { came = true; });
    CHECK(pump.Next());
    CHECK(came);
    came = false;
    pump.set_closing(true);
    machine->Post([&] { came = true; });
    CHECK_FALSE(pump.Next());
    CHECK_FALSE(came);
  }

  TEST_CASE("the item after which Stop was pressed is the last one") {
    const auto machine = NewContractMachine();
    machine->Post([&] { machine->pump().set_closing(true); });
    CHECK_FALSE(machine->pump().Next());
  }
}

}  // namespace scourwell::test
