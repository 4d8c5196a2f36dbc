// SPDX-License-Identifier: MIT

// The small parts of the tools: profiles, stored values, lines, commands.
#include "tests/support.h"
#include "tools/profile_file.h"
#include "tools/program_of.h"
#include "tools/stored_value.h"
#include "tools/win_ini_line.h"

namespace scourwell::test {
namespace {

constexpr char kProfile[] = "C:\\App\\SaveProf.pro";

ProfileRecord Record(const std::string& name) {
  return {{name, "Disabled", "Registry(User Run)", "Current User", "when", "C:\\x.exe"}};
}

std::string Names(const std::vector<ProfileRecord>& records) {
  std::string text;
  for (const ProfileRecord& record : records) {
    text +=
        record.fields[ProfileRecord::kName] + "/" + record.fields[ProfileRecord::kCommand] + " ";
  }
  return text;
}

RegValue Value(std::uint32_t type, std::string data) { return {type, std::move(data)}; }

}  // namespace

TEST_SUITE("profile_file") {
  TEST_CASE("six lines a record, and every field comes back") {
    Bench b;
    const ProfileRecord odd{
        {"", "a\r\nb", "hex:41", std::string("nul\0", 4), " blanks ", "\u00E4\u0142,%x%"}};
    CHECK(ProfileText({Record("one")}, b.m.code_pages) ==
          "one\r\nDisabled\r\nRegistry(User Run)\r\nCurrent User\r\nwhen\r\nC:\\x.exe\r\n");
    const ProfileReading back =
        ReadProfileText(ProfileText({Record("one"), odd}, b.m.code_pages), b.m.code_pages);
    REQUIRE(back.records.size() == 2);
    CHECK(back.left_over == 0);
    CHECK(back.records[1].fields == odd.fields);
  }

  TEST_CASE("names and commands that look like stored data stay what they are") {
    Bench b;
    const ProfileRecord alike{
        {"key:41;", "hex(01):41", "hex(1):c3", "key:c3|=hex(1):", "hex:", "key:41;;"}};
    const ProfileReading back =
        ReadProfileText(ProfileText({alike}, b.m.code_pages), b.m.code_pages);
    REQUIRE(back.records.size() == 1);
    CHECK(back.records[0].fields == alike.fields);
  }

  TEST_CASE("a profile cut at any line or byte loses only the record that it cuts") {
    FakeCodePages code_pages;
    const std::string text = ProfileText({Record("one"), Record("two")}, code_pages);
    const std::size_t record = text.size() / 2;
    for (std::size_t size = 0; size <= text.size(); ++size) {
      CAPTURE(size);
      Bench b;
      b.m.File(kProfile, text.substr(0, size));
      std::vector<ProfileRecord> records;
      const Outcome loaded = LoadProfile(b.m.files, b.m.code_pages, kProfile, &records);
      CHECK(records.size() == size / record);
      CHECK(loaded.code() == (size % record == 0 ? kNoError : kPastEndOfFile));
    }
  }

  TEST_CASE("files that are missing, of other hands, or cannot be read") {
    Bench b;
    std::vector<ProfileRecord> records;
    CHECK(LoadProfile(b.m.files, b.m.code_pages, kProfile, &records).ok());
    b.m.File(kProfile, "a\nb\nc\nd\ne\nf\nhex:4\nb\nc\nd\ne\nhex:zz\n");
    CHECK(LoadProfile(b.m.files, b.m.code_pages, kProfile, &records).ok());
    CHECK(Names(records) == "a/f hex:4/hex:zz ");
    b.m.files.Find(kProfile)->Denied();
    CHECK(LoadProfile(b.m.files, b.m.code_pages, kProfile, &records).code() == kPermissionDenied);
    CHECK(records.size() == 2);
    CHECK_FALSE(SaveProfile(b.m.files, b.m.code_pages, kProfile, {}).ok());
  }

  TEST_CASE(
      "bytes of an older profile are letters of the code page, and stay such where they fit") {
    FakeCodePages pages;
    ProfileRecord record = Record("\u00FC\u0141");
    for (const auto& [command, line] : Rows<std::string, std::string>{
             {TextOfValue(Value(kRegExpandText, "%x%\u00FC")), "hex(2):257825FC"},
             {TextOfValue(Value(kRegExpandText, "\u0141")), "hex(2):uC581"},
             {TextOfValue(Value(kRegBinary, "\xC5\x81")), "hex(3):C581"},
             {TextOfValue({kRegText, "a", 'x'}), "hex(1):61.78"},
             {TextOfTree({{"", {{"\u00FC", {kRegText, "\u0141"}}}}}), "key:|FC=hex(1):uC581"}}) {
      record.fields[ProfileRecord::kCommand] = command;
      const std::string text = ProfileText({record}, pages);
      CAPTURE(line);
      CHECK(text.starts_with("\xFC<U+0141>\r\n"));
      CHECK(text.ends_with("\r\n" + line + "\r\n"));
      const ProfileReading back = ReadProfileText(text, pages);
      REQUIRE(back.records.size() == 1);
      CHECK(back.records[0].fields == record.fields);
    }
  }

  TEST_CASE("without records there is no file") {
    Bench b;
    CHECK(SaveProfile(b.m.files, b.m.code_pages, kProfile, {Record("x")}).ok());
    CHECK(b.m.Has(kProfile));
    CHECK(SaveProfile(b.m.files, b.m.code_pages, kProfile, {}).ok());
    CHECK_FALSE(b.m.Has(kProfile));
    CHECK(SaveProfile(b.m.files, b.m.code_pages, kProfile, {}).ok());
  }
}

TEST_SUITE("stored_value") {
  TEST_CASE("values come back with type and bytes; plain texts stay readable") {
    const std::string nul(1, '\0');
    for (const auto& [value, text] :
         Rows<RegValue, std::string>{{Value(kRegText, "C:\\x.exe /a" + nul), "C:\\x.exe /a"},
                                     {Value(kRegText, nul), ""},
                                     {Value(kRegText, ""), "hex(1):"},
                                     {Value(kRegText, "ab"), "hex(1):6162"},
                                     {Value(kRegText, "a" + nul + nul), "hex(1):610000"},
                                     {Value(kRegText, "hex(1):" + nul), "hex(1):6865782831293A00"},
                                     {Value(kRegExpandText, "%x%" + nul), "hex(2):25782500"},
                                     {Value(kRegBinary, "\x01\xFF"), "hex(3):01FF"},
                                     {Value(0xFFFFFFFF, ""), "hex(FFFFFFFF):"}}) {
      CAPTURE(text);
      CHECK(TextOfValue(value) == text);
      const RegValue back = ValueOfText(text);
      CHECK(back.type == value.type);
      CHECK(back.data == value.data);
    }
  }

  TEST_CASE("damaged texts are taken as the text that they are") {
    for (const char* text : {"hex(", "hex(2)", "hex(2):0", "hex(2):0g", "hex(x):00", "hex():00",
                             "hex(100000000):00", "hex(-1):"}) {
      CAPTURE(text);
      const RegValue value = ValueOfText(text);
      CHECK(value.type == kRegText);
      CHECK(TrimNull(value.data) == text);
    }
  }

  TEST_CASE("a key comes back with all its values and keys") {
    Bench b;
    const auto root = RootKey::LocalMachine;
    b.m.registry.Make(root, "A\\top")
        .Value("", "x")
        .Value("|;=", std::string("\0\1", 2), kRegBinary);
    b.m.registry.Make(root, "A\\top\\sub;|\\deep").Value("v", "", kRegDword);
    StoredTree tree;
    REQUIRE(ReadTree(b.m.registry, root, "A\\top", &tree) == kRegOk);
    const std::string text = TextOfTree(tree);
    REQUIRE(DeleteStoredTree(b.m.registry, root, "A\\top", tree) == kRegOk);
    CHECK(b.m.registry.Find(root, "A\\top") == nullptr);
    REQUIRE(WriteTree(b.m.registry, root, "A\\top", TreeOfText(text)) == kRegOk);
    REQUIRE(ReadTree(b.m.registry, root, "A\\top", &tree) == kRegOk);
    CHECK(TextOfTree(tree) == text);
    CHECK(tree.size() == 3);
    CHECK(ReadTree(b.m.registry, root, "A\\none", &tree) == kRegNotFound);
    // What cannot be reached below a key would be lost with it.
    b.m.registry.Link(root, "A\\top\\away", "B\\none");
    CHECK(ReadTree(b.m.registry, root, "A\\top", &tree) == kRegInvalidParameter);
    for (const std::string& bad : {text.substr(0, text.size() - 1), text + ";x", "|" + text,
                                   std::string("key:0"), std::string("key:|x")}) {
      CHECK(TreeOfText(bad).empty());
    }
  }

  TEST_CASE("a key of endless depth is refused") {
    Bench b;
    std::string path = "A";
    for (unsigned i = 0; i < kDeepestStoredKey + 2; ++i) path += "\\k";
    b.m.registry.Make(RootKey::LocalMachine, path);
    StoredTree tree;
    CHECK(ReadTree(b.m.registry, RootKey::LocalMachine, "A", &tree) == kRegInvalidParameter);
  }
}

TEST_SUITE("win_ini_line") {
  TEST_CASE("programs are parted by blanks and commas outside quotes") {
    for (const auto& [line, programs] : Rows<std::string, std::vector<std::string>>{
             {"", {}},
             {" , \t", {}},
             {"a.exe", {"a.exe"}},
             {"a,b c\td", {"a", "b", "c", "d"}},
             {"\"C:\\My Files\\a.exe\" /x,\"b,c\"", {"\"C:\\My Files\\a.exe\"", "/x", "\"b,c\""}},
             {"x\"y z\"w v", {"x\"y z\"w", "v"}},
             {"a \"open b", {"a", "\"open b"}}}) {
      CAPTURE(line);
      CHECK(WinIniLine(line).programs() == programs);
      CHECK(WinIniLine(line).text() == line);
    }
  }

  TEST_CASE("a program that is taken out leaves the others as they stand") {
    const std::string line = " a.exe , \"b c\"  d,e ";
    CHECK(WithoutProgram(line, "a.exe") == " \"b c\"  d,e ");
    CHECK(WithoutProgram(line, "\"b c\"") == " a.exe  d,e ");
    CHECK(WithoutProgram(line, "e") == " a.exe , \"b c\"  d ");
    CHECK(WithoutProgram(line, "A.EXE") == line);
    CHECK(WithoutProgram("a", "a") == "");
    CHECK(WithOther(line, "d", "\"x y\"") == " a.exe , \"b c\"  \"x y\",e ");
  }

  TEST_CASE("programs return to their places in any order, else to the end") {
    const std::string original = "a, b  a,\"c d\"";
    std::vector<std::string> order = {"\"c d\"", "a", "a", "b"};
    std::string line = original;
    for (const std::string& program : order) line = WithoutProgram(line, program);
    CHECK(line == "");
    for (const char* program : {"a", "\"c d\"", "b", "a"}) {
      line = WithProgram(line, program, original);
    }
    CHECK(line == original);
    CHECK(WithProgram("a new", "b", original) == "a new b");  // changed by others meanwhile
    CHECK(WithProgram("", "b", "") == "b");
    CHECK(WithProgram(" , ", "b", "") == "b");
    // Of two programs of one name, each has its place; an open quote swallows none.
    CHECK(WithProgram(WithoutProgram("a, tw tw \"x", "tw"), "tw", "a, tw tw \"x") ==
          "a, tw tw \"x");
    CHECK(WithProgram("a \"x y", "b", "") == "a b \"x y");
    CHECK(WithProgram("\"x y", "b", "") == "b \"x y");
    CHECK(WithProgram(original, "b", original) == original + " b");
  }
}

TEST_SUITE("program_of") {
  TEST_CASE("the program of a command line is found as the system finds it") {
    Bench b;
    SystemFolders folders;
    folders.windows = "C:\\WINDOWS";
    folders.system = "C:\\WINDOWS\\system32";
    b.m.system.environment["Root"] = "C:\\My Files";
    for (const char* path : {"C:\\My Files\\a b.exe", "C:\\plain.exe", "C:\\WINDOWS\\tray.exe",
                             "C:\\WINDOWS\\system32\\rundll32.exe", "C:\\bar.dll"}) {
      b.m.File(path);
    }
    b.m.Folder("C:\\folder.exe");
    for (const auto& [command, path, arguments, exists] :
         Rows<std::string, std::string, std::string, bool>{
             {"C:\\plain.exe", "C:\\plain.exe", "", true},
             {"  C:\\plain /x y ", "C:\\plain.exe", "/x y", true},
             {"\"C:\\My Files\\a b.exe\" \"q\"", "C:\\My Files\\a b.exe", "\"q\"", true},
             {"C:\\My Files\\a b.exe -z", "C:\\My Files\\a b.exe", "-z", true},
             {"\"%Root%\\a b\"", "C:\\My Files\\a b.exe", "", true},
             {"tray.exe /t", "C:\\WINDOWS\\tray.exe", "/t", true},
             {"RUNDLL32 C:\\bar.dll,Start now", "C:\\bar.dll", ",Start now", true},
             {"rundll32.exe \"C:\\no.dll\",x", "C:\\no.dll", ",x", false},
             {"C:\\Gone Away\\x.exe /a", "C:\\Gone Away\\x.exe", "/a", false},
             {"C:\\Gone Away\\x.dll.bat \"C:\\a b.dll\"", "C:\\Gone Away\\x.dll.bat",
              "\"C:\\a b.dll\"", false},
             {"C:\\Gone Away\\x.com.vbs", "C:\\Gone Away\\x.com.vbs", "", false},
             {"C:\\a.exe b.bat", "C:\\a.exe", "b.bat", false},
             {"C:\\a.bat b.exe", "C:\\a.bat", "b.exe", false},
             {"C:\\Gone.exemption Away\\y.DLL", "C:\\Gone.exemption Away\\y.DLL", "", false},
             {"gone C:\\x.exe", "gone", "C:\\x.exe", false},
             {"gone /a", "gone", "/a", false},
             {"\"open quote", "open quote", "", false},
             {"", "", "", false},
             {"C:\\folder.exe", "C:\\folder.exe", "", false},
             {"C:\\*.exe", "C:\\*.exe", "", false},
             {"..\\x.exe", "..\\x.exe", "", false},
             {"%Unknown%%Root%\\a b.exe", "%Unknown%C:\\My Files\\a b.exe", "", false},
         }) {
      CAPTURE(command);
      const ProgramOf program = FindProgram(command, b.m.files, folders, b.m.system);
      CHECK(program.path == path);
      CHECK(program.arguments == arguments);
      CHECK(program.exists == exists);
    }
    for (const std::string same : {"C:\\plain.exe /x", "\"C:\\My Files\\a b.exe\" -z",
                                   "C:\\No File\\x", "rundll32 C:\\bar.dll,Start", ""}) {
      CHECK(SafeCommand(same, b.m.files, folders, b.m.system) == same);
    }
    for (const std::string name : {"C:\\My Files\\a b.exe", "C:\\My Files\\a b"}) {
      CHECK(SafeCommand(name + " -z", b.m.files, folders, b.m.system) ==
            "\"C:\\My Files\\a b.exe\" -z");
    }
    // What the system would run by mistake is shown, but never started.
    b.m.File("C:\\My.exe");
    const std::string bare = "C:\\My Files\\a b.exe -z";
    CHECK(FindProgram(bare, b.m.files, folders, b.m.system).path == "C:\\My.exe");
    CHECK(SafeCommand(bare, b.m.files, folders, b.m.system) == "\"C:\\My Files\\a b.exe\" -z");
  }

  TEST_CASE("other machines are not asked, and no command takes endless look-ups") {
    Bench b;
    b.m.AddDrive('A', DriveKind::Removable, false);
    b.m.AddDrive('N', DriveKind::Network);
    b.m.File("N:\\x.exe");
    struct Row {
      const char* beginning;
      bool remote;
      std::size_t look_ups;
    };
    for (const Row& row : {Row{"\\\\10.9.8.7\\s\\", true, 0},
                           {"\"\\\\10.9.8.7\\s\\x.exe\" ", true, 0},
                           {"n:\\x.exe ", true, 0},
                           {"rundll32 N:\\x.dll,", true, 100},
                           {"A:\\", false, 1},
                           {"\"%", false, 100},
                           {"C:\\", false, 100}}) {
      CAPTURE(row.beginning);
      std::string command = row.beginning;
      while (command.size() < 10'000) command += "a ";
      b.m.files.journal.clear();
      const ProgramOf program = FindProgram(command, b.m.files, {}, b.m.system);
      CHECK_FALSE(program.exists);
      CHECK(program.remote == row.remote);
      CHECK(b.m.files.Count("Stat") <= row.look_ups);
      CHECK(b.m.files.Count("Stat \\\\") + b.m.files.Count("Stat N:") == 0);
    }
  }
}

}  // namespace scourwell::test
