// SPDX-License-Identifier: MIT

// Hostile trees: whatever an ordinary user or a spy prepares on the disk, or swaps while the
// removal goes on, what belongs to others stays.
#include "tests/removal_support.h"

namespace scourwell::test {
namespace {

// What must stay, with its content.
constexpr const char* kCanaries[] = {
    "C:\\WINDOWS\\explorer.exe",          "C:\\WINDOWS\\system32\\kernel32.dll",
    "C:\\WINDOWS\\system32\\config\\SAM", "C:\\App\\Scourwell.exe",
    "C:\\Precious\\deep\\letter.txt",     "C:\\Users\\me\\Desktop\\mine.txt"};

struct Hostile {
  const char* name;
  std::function<void(Remover&)> plant;
  FoundObject object;
  const char* states;  // those that are right
};

// Swaps a folder for a link to `target` when the item is opened, as a spy in another process would.
void SwapWhen(Remover& r, std::string opened, std::string folder, std::string target) {
  r.m.files.before_open = [&r, opened, folder, target](const std::string& path) {
    if (path != opened || !r.m.Has(folder)) return;
    if (r.m.files.Find(folder)->IsLink()) return;
    static_cast<void>(r.m.files.Move(folder, folder + " before"));
    r.m.files.Remove(folder);
    r.m.Link(folder, target);
  };
}

void SecondLetter(Remover& r, DriveKind kind, const char* folder, const char* true_root) {
  r.m.files.AddSecondLetter('X', kind, folder, true_root);
}

const std::vector<Hostile>& HostileTrees() {
  static const std::vector<Hostile> trees = {
      {"the folder itself is a link", [](Remover& r) { r.m.Link("C:\\Evil", "C:\\Precious"); },
       FoundFolder{"C:\\Evil"}, "r"},
      {"a folder above the file is a link",
       [](Remover& r) { r.m.Link("C:\\Evil", "C:\\Precious"); },
       FoundFile{"C:\\Evil\\deep\\letter.txt"}, "R"},
      {"a folder above the folder is a link",
       [](Remover& r) { r.m.Link("C:\\Evil", "C:\\Precious"); }, FoundFolder{"C:\\Evil\\deep"},
       "R"},
      {"links to folders and files within",
       [](Remover& r) {
         r.m.File("C:\\Evil\\x.exe", "x");
         r.m.Link("C:\\Evil\\a", "C:\\Precious");
         r.m.Link("C:\\Evil\\b", "C:\\WINDOWS\\system32");
         r.m.Link("C:\\Evil\\c", "C:\\Evil");
       },
       FoundFolder{"C:\\Evil"}, "r"},
      {"a folder within becomes a link once it has been listed",
       [](Remover& r) {
         r.m.File("C:\\Evil\\deep\\letter.txt", "x");
         SwapWhen(r, "C:\\Evil\\deep\\letter.txt", "C:\\Evil\\deep", "C:\\Precious\\deep");
       },
       FoundFolder{"C:\\Evil"}, "F"},
      {"the folder becomes a link while it is emptied",
       [](Remover& r) {
         r.m.File("C:\\Evil\\deep\\letter.txt", "x");
         SwapWhen(r, "C:\\Evil\\deep", "C:\\Evil", "C:\\Precious");
       },
       FoundFolder{"C:\\Evil"}, "F"},
      {"the folder becomes a link before it is opened",
       [](Remover& r) {
         r.m.File("C:\\Evil\\deep\\letter.txt", "x");
         SwapWhen(r, "C:\\Evil", "C:\\Evil", "C:\\Precious");
       },
       FoundFolder{"C:\\Evil"}, "r"},
      {"the way is swapped although it is held",
       [](Remover& r) {
         r.m.File("C:\\Evil\\explorer.exe", "x");
         r.m.files.before_open = [&r](const std::string& path) {
           if (path != "C:\\Evil\\explorer.exe") return;
           r.m.files.Find("C:\\Evil\\explorer.exe")->name = "away";
           r.m.files.Find("C:\\Evil")->attributes |= kLink;
           r.m.files.Find("C:\\Evil")->target = "C:\\WINDOWS";
         };
       },
       FoundFile{"C:\\Evil\\explorer.exe"}, "R"},
      {"a second letter leads to a file of Windows",
       [](Remover& r) { SecondLetter(r, DriveKind::Fixed, "C:\\WINDOWS", "C:\\WINDOWS"); },
       FoundFile{"X:\\explorer.exe"}, "R"},
      {"a second letter leads to the system folder",
       [](Remover& r) { SecondLetter(r, DriveKind::Fixed, "C:\\WINDOWS", "X:"); },
       FoundFolder{"X:\\system32"}, "R"},
      {"a second letter leads to what holds Windows",
       [](Remover& r) { SecondLetter(r, DriveKind::Fixed, "C:\\", "X:"); },
       FoundFolder{"X:\\Users"}, "R"},
      {"a second letter leads to the registry's files",
       [](Remover& r) { SecondLetter(r, DriveKind::Fixed, "C:\\WINDOWS\\system32", "X:"); },
       FoundFile{"X:\\config\\SAM"}, "R"},
      {"a second letter leads to the program",
       [](Remover& r) { SecondLetter(r, DriveKind::Fixed, "C:\\App", "X:"); },
       FoundFile{"X:\\Scourwell.exe"}, "R"},
      {"the drive is shared with the machine itself",
       [](Remover& r) { SecondLetter(r, DriveKind::Network, "C:\\", "\\\\127.0.0.1\\C$"); },
       FoundFile{"X:\\WINDOWS\\explorer.exe"}, "R"},
      {"Windows is shared with the machine itself, by another name",
       [](Remover& r) { SecondLetter(r, DriveKind::Network, "C:\\WINDOWS", "\\\\me\\innocent"); },
       FoundFolder{"X:\\system32"}, "R"},
      {"what waits for the next start is swapped for a link meanwhile",
       [](Remover& r) {
         r.m.File("C:\\Evil\\deep\\letter.txt", "x").Running();
         r.m.Folder("C:\\Evil").OpenToUsers();
       },
       FoundFile{"C:\\Evil\\deep\\letter.txt"}, "p"},
      {"the same, and nobody may move it",
       [](Remover& r) {
         r.m.File("C:\\Evil\\deep\\letter.txt", "x").Locked();
         r.m.Folder("C:\\Evil").OpenToUsers();
       },
       FoundFile{"C:\\Evil\\deep\\letter.txt"}, "F"},
      {"the folder in use holds such a file",
       [](Remover& r) {
         r.m.File("C:\\Evil\\deep\\letter.txt", "x").Locked();
         r.m.Folder("C:\\Evil\\deep").OpenToUsers();
       },
       FoundFolder{"C:\\Evil"}, "F"},
  };
  return trees;
}

}  // namespace

TEST_SUITE("red_team") {
  TEST_CASE("a hostile tree costs nothing but itself") {
    for (const Hostile& hostile : HostileTrees()) {
      CAPTURE(std::string(hostile.name));
      Remover r;
      for (const char* canary : kCanaries) r.m.File(canary, canary);
      hostile.plant(r);
      CHECK(r.RemoveOne(hostile.object) == hostile.states);
      // Until the next start the tree is the spy's again.
      r.m.files.before_open = nullptr;
      if (r.m.Has("C:\\Evil") && r.m.files.Find("C:\\Evil")->open_to_users) {
        r.m.files.Remove("C:\\Evil");
      }
      if (!r.m.Has("C:\\Evil")) r.m.Link("C:\\Evil", "C:\\Precious");
      r.m.Restart();
      for (const char* canary : kCanaries) CHECK(r.m.Content(canary) == canary);
    }
  }

  TEST_CASE("a definition that names a folder of Windows costs none of the files in it") {
    for (const auto& [path, certainty, states] : Rows<const char*, Certainty, const char*>{
             {"C:\\WINDOWS\\system32\\shell.dll", Certainty::Beside, "R"},
             {"C:\\WINDOWS\\notepad.exe", Certainty::Beside, "R"},
             {"C:\\Program Files\\readme.txt", Certainty::Beside, "R"},
             {"C:\\Evil\\readme.txt", Certainty::Beside, "r"},
             {"C:\\WINDOWS\\system32\\evil.dll", Certainty::Name, "r"}}) {
      CAPTURE(std::string(path));
      Remover r;
      r.m.File(path);
      r.hits.AddSpyToListView({"spy", FoundFile{path}, certainty});
      r.Run();
      CHECK(r.States() == states);
      CHECK(r.m.Has(path) == (states == std::string("R")));
    }
  }

  TEST_CASE(
      "on Windows 95, 98 and Me, which tell no numbers, a second letter is refused as a whole") {
    Remover r(false);
    r.m.File("C:\\WINDOWS\\explorer.exe", "x");
    r.m.File("C:\\Evil\\evil.exe", "x");
    r.m.AddDrive('D');
    r.m.File("D:\\evil.exe", "x");
    SecondLetter(r, DriveKind::Fixed, "C:\\WINDOWS", "X:");
    CHECK(r.RemoveOne(FoundFile{"X:\\explorer.exe"}) == "R");
    CHECK(r.RemoveOne(FoundFile{"D:\\evil.exe"}) == "r");
    CHECK(r.RemoveOne(FoundFolder{"C:\\Evil"}) == "r");
    CHECK(r.m.Has("C:\\WINDOWS\\explorer.exe"));
  }

  TEST_CASE("a harmless folder goes by its second letter, too") {
    Remover r;
    r.m.File("C:\\Things\\Evil\\x.exe", "x");
    SecondLetter(r, DriveKind::Fixed, "C:\\Things", "C:\\Things");
    CHECK(r.RemoveOne(FoundFolder{"X:\\Evil"}) == "r");
    CHECK_FALSE(r.m.Has("C:\\Things\\Evil"));
  }
}

}  // namespace scourwell::test
