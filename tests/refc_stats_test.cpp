// SPDX-License-Identifier: MIT

// refc stats, and the table of walked keys that lint judges key parts by.

#include "machine/registry_place.h"
#include "refc/walked_keys.h"
#include "scan/registry_scan.h"
#include "tests/refc_support.h"
#include "tests/session_support.h"

namespace scourwell::test {
namespace {

// Keeps which keys a scan counts before it walks through them.
struct CountedRegistry : FakeRegistry {
  std::set<std::string, NoCaseLess> keys;
  std::set<std::string, NoCaseLess> entered;

  RegStatus Count(RootKey root, const std::string& path, RegCounts* counts) override {
    keys.insert(std::string(NameFromRoot(root)) + "\\" + path);
    return FakeRegistry::Count(root, path, counts);
  }
  RegStatus EnumKeys(RootKey root, const std::string& path, const VisitKey& visit) override {
    entered.insert(std::string(NameFromRoot(root)) + "\\" + path);
    return FakeRegistry::EnumKeys(root, path, visit);
  }
};

}  // namespace

TEST_SUITE("refc_stats") {
  TEST_CASE("the table of walked keys is what the registry phase walks through") {
    ScanBench bench;
    CountedRegistry registry;
    RegistryScan scan(registry, bench.m.pump, bench.log, bench.sink, bench.progress, bench.lists,
                      bench.loader);
    scan.QuickPass();
    scan.DeepPass();
    std::set<std::string, NoCaseLess> keys;
    std::set<std::string, NoCaseLess> entered;
    for (const refc::WalkedKey& key : refc::WalkedKeys()) {
      keys.insert(std::string(key.path));
      if (key.subkeys) entered.insert(std::string(key.path));
    }
    CHECK(keys == registry.keys);
    CHECK(entered == registry.entered);
  }

  TEST_CASE("rows are counted by family, kind, category and certainty") {
    Tool tool;
    tool.disk.files["a.tsv"] =
        "[trojans]\nWorm.A\tfile\tevilworm.exe\thttp://a.b/c\n"
        "Worm.A\tprocess\tevilworm.exe\tname seen, place inferred: http://a.b/c\n"
        "[spyware]\nEvilbar\tfolder\tevilbar\tknown\nWorm.A\tprogram\tevil worm\tstart-up list\n"
        "Evilbar\tvalue\tHKEY_CURRENT_USER\\Software\\Evil\\\\Bar\tname seen, key known: a page\n"
        "[cookies]\nTracker\tcookie\tevilads\ta list\n"
        "[categories]\nworm\tspreads\nadware\tnags\nWorm.*\tis\tworm\nEvilbar\tis\tadware\n"
        "[spyware]\nEvilbar\tkey part\tHKEY_CURRENT_USER\\Software\\Evil\\Bar\\x\tknown\n";
    CHECK(tool.Run({"stats", "a.tsv"}) == 0);
    for (const char* line :
         {"rows\t7\n", "spies\t3\n", "family\t3\tspyware\n", "family\t3\ttrojans\n",
          "family\t1\tcookies\n", "kind\t1\tprocess\n", "category\t3\tworm\n",
          "category\t3\tadware\n", "category\t1\tnone\n", "certainty\t1\tpage\n",
          "certainty\t3\tknown\n", "certainty\t2\tnamed\n", "certainty\t1\tconcluded\n",
          "with a page\t2\t28 %\n", "spies with one row\t1\n", "one row\tTracker\ta.tsv:9\n",
          "rows that can never match\t1\n", "never\ta.tsv:16: reach: "}) {
      CAPTURE(std::string(line));
      CHECK(tool.out.find(line) != std::string::npos);
    }
    // A compiled file no longer knows where its rows are from.
    tool.disk.files["a.ref"] = tool.Build("b.tsv", "[spyware]\nEvilbar\tfolder\tevilbar\tknown\n");
    CHECK(tool.Run({"stats", "a.ref"}) == 0);
    CHECK(tool.out.find("certainty\t1\tunsaid\n") != std::string::npos);
  }
}

}  // namespace scourwell::test
