#include "definitions/loader_table.h"

namespace scourwell {
namespace {

using Lists = SignatureLists;
constexpr auto kSearch = &Lists::lstSearch;

constexpr Sequence SearchedFiles(const char* section, const char* name, const char* value,
                                 const char* count) {
  return {section, name, value, nullptr, count, EntryTarget::Row, kSearch, "Spy File"};
}
constexpr Sequence SearchedFolders(const char* section, const char* name, const char* value,
                                   const char* count) {
  return {section, name, value, nullptr, count, EntryTarget::Row, kSearch, "Spy Folder"};
}
constexpr Sequence DirectFiles(const char* section, const char* name, const char* value,
                               const char* count) {
  return {section, name, value, nullptr, count, EntryTarget::DirectFile, nullptr, nullptr};
}
constexpr Sequence DirectFolders(const char* section, const char* name, const char* value,
                                 const char* count) {
  return {section, name, value, nullptr, count, EntryTarget::DirectFolder, nullptr, nullptr};
}
constexpr Sequence Rows(const char* section, const char* name, const char* value, const char* count,
                        SignatureList Lists::*list, const char* type) {
  return {section, name, value, nullptr, count, EntryTarget::Row, list, type};
}

constexpr Sequence kTrojans[] = {
    SearchedFiles("TAFI", "TAFIT", "TAFIS", "TAFITNUM"),
    SearchedFolders("TAFO", "TAFOT", "TAFOS", "TAFOTNUM"),
    DirectFiles("TAFI", "TAFITD", "TAFISD", "TAFITDNUM"),
    DirectFolders("TAFO", "TAFOTD", "TAFOSD", "TAFOTDNUM"),
};
constexpr Sequence kDialerFiles[] = {
    SearchedFiles("DAFI", "DAFIT", "DAFIS", "DAFITNUM"),
    DirectFiles("DAFI", "DAFITD", "DAFISD", "DAFITDNUM"),
};
constexpr Sequence kDialerFolders[] = {
    SearchedFolders("DAFO", "DAFOT", "DAFOS", "DAFOTNUM"),
    DirectFolders("DAFO", "DAFOTD", "DAFOSD", "DAFOTDNUM"),
};
constexpr Sequence kHijackerFiles[] = {
    SearchedFiles("HAFI", "HAFIT", "HAFIS", "HAFITNUM"),
    // The files carry this count under a doubled D.
    DirectFiles("HAFI", "HAFITD", "HAFISD", "HAFITDDNUM"),
};
constexpr Sequence kHijackerFolders[] = {
    SearchedFolders("HAFO", "HAFOT", "HAFOS", "HAFOTNUM"),
    DirectFolders("HAFO", "HAFOTD", "HAFOSD", "HAFOTDNUM"),
};
constexpr Sequence kKeyLoggerFiles[] = {
    SearchedFiles("KAFI", "KAFIT", "KAFIS", "KAFITNUM"),
    DirectFiles("KAFI", "KAFITD", "KAFISD", "KAFITDNUM"),
};
constexpr Sequence kKeyLoggerFolders[] = {
    SearchedFolders("KAFO", "KAFOT", "KAFOS", "KAFOTNUM"),
    DirectFolders("KAFO", "KAFOTD", "KAFOSD", "KAFOTDNUM"),
};
constexpr Sequence kSpyFiles[] = {
    SearchedFiles("SAFI", "SAFIT", "SAFIS", "SAFITNUM"),
    DirectFiles("SAFI", "SAFITD", "SAFISD", "SAFITDNUM"),
};
constexpr Sequence kSpyFolders[] = {
    SearchedFolders("SAFO", "SAFOT", "SAFOS", "SAFOTNUM"),
    DirectFolders("SAFO", "SAFOTD", "SAFOSD", "SAFOTDNUM"),
};
constexpr Sequence kRegistrySV[] = {
    {"REGS", "REGST", "REGSK", nullptr, "REGSKNUM", EntryTarget::KeyRow, kSearch, nullptr},
    {"REGV", "REGVT", "REGVK", "REGVV", "REGVKNUM", EntryTarget::ValueRow, &Lists::lstRegistry,
     nullptr},
};
constexpr Sequence kProcesses[] = {
    {"MEMA", "MEMAT", "MEMAF", nullptr, "MEMAFNUM", EntryTarget::Process, nullptr, nullptr},
};
constexpr Sequence kRegistryK[] = {
    Rows("REGK", "REGKT", "REGKK", "REGKKNUM", &Lists::lstRegKSearch, "Reg Key"),
};
constexpr Sequence kRegistryKO[] = {
    Rows("REGKO", "REGKTO", "REGKKO", "REGKKONUM", &Lists::lstRegKSearch, "Reg Key"),
};
constexpr Sequence kCookies[] = {
    Rows("COOK", "COOKT", "COOKC", "COOKTNUM", kSearch, "Spy Cookie"),
};
constexpr Sequence kCompanies[] = {
    Rows("SCE", "SCET", "SCEV", "SCETNUM", &Lists::lstCESearch, "Spy CE File"),
    Rows("SCW", "SCWT", "SCWV", "SCWTNUM", &Lists::lstCWSearch, "Spy CW File"),
};
constexpr Sequence kOriginalNames[] = {
    Rows("SBOFN", "SBOFNT", "SBOFNF", "SBOFNTNUM", &Lists::lstOFNSearch, "Spy OFN File"),
};
constexpr Sequence kInternalNames[] = {
    Rows("SBIFN", "SBIFNT", "SBIFNF", "SBIFNTNUM", &Lists::lstIFNSearch, "Spy IFN File"),
};
constexpr Sequence kProductNames[] = {
    Rows("SBPN", "SBPNT", "SBPNF", "SBPNTNUM", &Lists::lstPNSearch, "Spy PN File"),
};
constexpr Sequence kDescriptions[] = {
    Rows("SBFD", "SBFDT", "SBFDF", "SBFDTNUM", &Lists::lstFDSearch, "Spy FD File"),
};
constexpr Sequence kChecksums[] = {
    {"SBFCS", "SBFCST", "SBFCSN", "SBFCSS", "SBFCSTNUM", EntryTarget::ChecksumRow,
     &Lists::lstFCSSearch, nullptr},
};

}  // namespace

const Loader kUpdateTrojanList = {"UpdateTrojanList", kTrojans};
const Loader kUpdateDialersFileList = {"UpdateDialersFileList", kDialerFiles};
const Loader kUpdateDialersFolderList = {"UpdateDialersFolderList", kDialerFolders};
const Loader kUpdateHijackersFileList = {"UpdateHijackersFileList", kHijackerFiles};
const Loader kUpdateHijackersFolderList = {"UpdateHijackersFolderList", kHijackerFolders};
const Loader kUpdateKeyLoggersFileList = {"UpdateKeyLoggersFileList", kKeyLoggerFiles};
const Loader kUpdateKeyLoggersFolderList = {"UpdateKeyLoggersFolderList", kKeyLoggerFolders};
const Loader kUpdateSpyFileList = {"UpdateSpyFileList", kSpyFiles};
const Loader kUpdateSpyFolderList = {"UpdateSpyFolderList", kSpyFolders};
const Loader kUpdateRegistrySVList = {"UpdateRegistrySVList", kRegistrySV};
const Loader kUpdateMemoryList = {"UpdateMemoryList", kProcesses};
const Loader kUpdateRegistryKList = {"UpdateRegistryKList", kRegistryK};
const Loader kUpdateRegistryKOList = {"UpdateRegistryKOList", kRegistryKO};
const Loader kUpdateCookieList = {"UpdateCookieList", kCookies};
const Loader kUpdateSearchByCompanyList = {"UpdateSearchByCompanyList", kCompanies, true};
const Loader kUpdateSearchByOriginalFileName = {"UpdateSearchByOriginalFileName", kOriginalNames,
                                                true};
const Loader kUpdateSearchByInternalFileName = {"UpdateSearchByInternalFileName", kInternalNames,
                                                true};
const Loader kUpdateSearchByProductName = {"UpdateSearchByProductName", kProductNames, true};
const Loader kUpdateSearchByFileDescription = {"UpdateSearchByFileDescription", kDescriptions,
                                               true};
const Loader kUpdateSearchByFileChecSum = {"UpdateSearchByFileChecSum", kChecksums, true};

}  // namespace scourwell
