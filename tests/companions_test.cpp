// SPDX-License-Identifier: MIT
#include "shell/companions.h"

#include "tests/support.h"

namespace scourwell::test {

TEST_SUITE("companions") {
  TEST_CASE("one is started from the folder, else from its own subfolder, and from nowhere else") {
    FakeMachine m;
    const Companions companions(m.files, m.shell, kAppFolder);
    const auto start = [&](Companion companion) {
      m.shell.journal.clear();
      const Outcome outcome = companions.Start(companion);
      if (!outcome.ok()) return std::to_string(outcome.code().number()) + outcome.notes();
      return m.shell.journal.at(0);
    };
    m.File("C:\\WINDOWS\\ScourwellUpdate.exe");
    m.Folder("C:\\App\\ScourwellUpdate.exe");
    CHECK(start(Companion::Updater) == "53, File: C:\\App\\ScourwellUpdate.exe");
    CHECK(companions.Find(Companion::Updater) == "");
    m.File("C:\\App\\Update\\ScourwellUpdate.exe");
    CHECK(start(Companion::Updater) == "Start C:\\App\\Update\\ScourwellUpdate.exe /S:244");
    m.files.Remove("C:\\App\\ScourwellUpdate.exe");
    m.File("C:\\App\\ScourwellUpdate.exe");
    CHECK(start(Companion::Updater) == "Start C:\\App\\ScourwellUpdate.exe /S:244");
  }

  TEST_CASE("every one has its own name and place") {
    FakeMachine m;
    const Companions companions(m.files, m.shell, kAppFolder);
    for (int i = 0; i < kCompanionCount; ++i) {
      const auto companion = static_cast<Companion>(i);
      CHECK(companions.Find(companion) == "");
      m.File(companions.ExpectedPath(companion));
      CHECK(companions.Find(companion) == companions.ExpectedPath(companion));
    }
  }
}

}  // namespace scourwell::test
