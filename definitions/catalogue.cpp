// SPDX-License-Identifier: MIT
#include "definitions/catalogue.h"

#include <string_view>

namespace scourwell {
namespace {

using enum DefinitionKind;

using Family::Dialers;
using Family::Hijackers;
using Family::KeyLoggers;
using Family::Spyware;
using Family::Trojans;

constexpr char kTrojans[] = "UpdateTrojanList";
constexpr char kDialerFiles[] = "UpdateDialersFileList";
constexpr char kDialerFolders[] = "UpdateDialersFolderList";
constexpr char kHijackerFiles[] = "UpdateHijackersFileList";
constexpr char kHijackerFolders[] = "UpdateHijackersFolderList";
constexpr char kKeyLoggerFiles[] = "UpdateKeyLoggersFileList";
constexpr char kKeyLoggerFolders[] = "UpdateKeyLoggersFolderList";
constexpr char kSpyFiles[] = "UpdateSpyFileList";
constexpr char kSpyFolders[] = "UpdateSpyFolderList";

constexpr Sequence kCatalogue[] = {
    {kTrojans, "TAFI", {"TAFIT", "TAFIS"}, "TAFITNUM", File, Trojans},
    {kTrojans, "TAFI", {"TAFITD", "TAFISD"}, "TAFITDNUM", DirectFile, Trojans},
    {kTrojans, "TAFO", {"TAFOT", "TAFOS"}, "TAFOTNUM", Folder, Trojans},
    {kTrojans, "TAFO", {"TAFOTD", "TAFOSD"}, "TAFOTDNUM", DirectFolder, Trojans},

    {kDialerFiles, "DAFI", {"DAFIT", "DAFIS"}, "DAFITNUM", File, Dialers},
    {kDialerFiles, "DAFI", {"DAFITD", "DAFISD"}, "DAFITDNUM", DirectFile, Dialers},
    {kDialerFolders, "DAFO", {"DAFOT", "DAFOS"}, "DAFOTNUM", Folder, Dialers},
    {kDialerFolders, "DAFO", {"DAFOTD", "DAFOSD"}, "DAFOTDNUM", DirectFolder, Dialers},

    {kHijackerFiles, "HAFI", {"HAFIT", "HAFIS"}, "HAFITNUM", File, Hijackers},
    // The files carry this count under a doubled D.
    {kHijackerFiles, "HAFI", {"HAFITD", "HAFISD"}, "HAFITDDNUM", DirectFile, Hijackers},
    {kHijackerFolders, "HAFO", {"HAFOT", "HAFOS"}, "HAFOTNUM", Folder, Hijackers},
    {kHijackerFolders, "HAFO", {"HAFOTD", "HAFOSD"}, "HAFOTDNUM", DirectFolder, Hijackers},

    {kKeyLoggerFiles, "KAFI", {"KAFIT", "KAFIS"}, "KAFITNUM", File, KeyLoggers},
    {kKeyLoggerFiles, "KAFI", {"KAFITD", "KAFISD"}, "KAFITDNUM", DirectFile, KeyLoggers},
    {kKeyLoggerFolders, "KAFO", {"KAFOT", "KAFOS"}, "KAFOTNUM", Folder, KeyLoggers},
    {kKeyLoggerFolders, "KAFO", {"KAFOTD", "KAFOSD"}, "KAFOTDNUM", DirectFolder, KeyLoggers},

    {kSpyFiles, "SAFI", {"SAFIT", "SAFIS"}, "SAFITNUM", File, Spyware},
    {kSpyFiles, "SAFI", {"SAFITD", "SAFISD"}, "SAFITDNUM", DirectFile, Spyware},
    {kSpyFolders, "SAFO", {"SAFOT", "SAFOS"}, "SAFOTNUM", Folder, Spyware},
    {kSpyFolders, "SAFO", {"SAFOTD", "SAFOSD"}, "SAFOTDNUM", DirectFolder, Spyware},

    {"UpdateRegistrySVList", "REGS", {"REGST", "REGSK"}, "REGSKNUM", KeyPart},
    {"UpdateRegistrySVList", "REGV", {"REGVT", "REGVK", "REGVV"}, "REGVKNUM", Value},
    {"UpdateMemoryList", "MEMA", {"MEMAT", "MEMAF"}, "MEMAFNUM", Process},
    {"UpdateRegistryKList", "REGK", {"REGKT", "REGKK"}, "REGKKNUM", Key},
    {"UpdateRegistryKOList", "REGKO", {"REGKTO", "REGKKO"}, "REGKKONUM", ClassKey},
    {"UpdateCookieList", "COOK", {"COOKT", "COOKC"}, "COOKTNUM", Cookie},

    {"UpdateSearchByCompanyList", "SCE", {"SCET", "SCEV"}, "SCETNUM", Company},
    {"UpdateSearchByCompanyList", "SCW", {"SCWT", "SCWV"}, "SCWTNUM", CompanyPart},
    {"UpdateSearchByOriginalFileName", "SBOFN", {"SBOFNT", "SBOFNF"}, "SBOFNTNUM", OriginalName},
    {"UpdateSearchByInternalFileName", "SBIFN", {"SBIFNT", "SBIFNF"}, "SBIFNTNUM", InternalName},
    {"UpdateSearchByProductName", "SBPN", {"SBPNT", "SBPNF"}, "SBPNTNUM", Product},
    {"UpdateSearchByFileDescription", "SBFD", {"SBFDT", "SBFDF"}, "SBFDTNUM", Description},
    {"UpdateSearchByFileChecSum", "SBFCS", {"SBFCST", "SBFCSN", "SBFCSS"}, "SBFCSTNUM", Checksum},

    {"removeFromList", "REMO", {nullptr, "REMENT"}, nullptr, Withdrawn, {}, kMostNames},
    {"UpdateWildcardList", "ADRE", {nullptr, "WCL"}, nullptr, ProgramPart, {}, kMostNames},
    {"UpdateExactSearchList", "ADRE", {nullptr, "ESL"}, nullptr, Program, {}, kMostNames},

    {"SpyCategories", "CATE", {nullptr, "CATEC", "CATET"}, nullptr, CategoryText},
    {"SpyCategories", "CATE", {nullptr, "CATES", "CATEI"}, nullptr, Category},
};

// A name that the catalogue lacks does not compile.
consteval Loader Called(std::string_view name) {
  std::size_t begin = 0;
  while (std::string_view(kCatalogue[begin].loader) != name) ++begin;
  std::size_t end = begin;
  while (end < std::size(kCatalogue) && kCatalogue[end].loader == name) ++end;
  return {kCatalogue[begin].loader, std::span(kCatalogue).subspan(begin, end - begin)};
}

}  // namespace

std::span<const Sequence> Catalogue() { return kCatalogue; }

constinit const Loader kUpdateTrojanList = Called(kTrojans);
constinit const Loader kUpdateDialersFileList = Called(kDialerFiles);
constinit const Loader kUpdateDialersFolderList = Called(kDialerFolders);
constinit const Loader kUpdateHijackersFileList = Called(kHijackerFiles);
constinit const Loader kUpdateHijackersFolderList = Called(kHijackerFolders);
constinit const Loader kUpdateKeyLoggersFileList = Called(kKeyLoggerFiles);
constinit const Loader kUpdateKeyLoggersFolderList = Called(kKeyLoggerFolders);
constinit const Loader kUpdateSpyFileList = Called(kSpyFiles);
constinit const Loader kUpdateSpyFolderList = Called(kSpyFolders);
constinit const Loader kUpdateRegistrySVList = Called("UpdateRegistrySVList");
constinit const Loader kUpdateMemoryList = Called("UpdateMemoryList");
constinit const Loader kUpdateRegistryKList = Called("UpdateRegistryKList");
constinit const Loader kUpdateRegistryKOList = Called("UpdateRegistryKOList");
constinit const Loader kUpdateCookieList = Called("UpdateCookieList");
constinit const Loader kUpdateSearchByCompanyList = Called("UpdateSearchByCompanyList");
constinit const Loader kUpdateSearchByOriginalFileName = Called("UpdateSearchByOriginalFileName");
constinit const Loader kUpdateSearchByInternalFileName = Called("UpdateSearchByInternalFileName");
constinit const Loader kUpdateSearchByProductName = Called("UpdateSearchByProductName");
constinit const Loader kUpdateSearchByFileDescription = Called("UpdateSearchByFileDescription");
constinit const Loader kUpdateSearchByFileChecSum = Called("UpdateSearchByFileChecSum");
constinit const Loader kRemoveFromList = Called("removeFromList");
constinit const Loader kUpdateWildcardList = Called("UpdateWildcardList");
constinit const Loader kUpdateExactSearchList = Called("UpdateExactSearchList");
constinit const Loader kSpyCategories = Called("SpyCategories");

}  // namespace scourwell
