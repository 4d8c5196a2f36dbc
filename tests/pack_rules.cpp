// Where the captions stand. A new menu entry, button or column belongs into these tables.
#include <cstddef>

#include "tests/pack_rules.h"

namespace scourwell::test {
namespace {

constexpr std::size_t kBarTitle = 14;
constexpr std::size_t kMenuEntry = 34;
constexpr std::size_t kButton = 24;
constexpr std::size_t kColumn = 22;
constexpr std::size_t kSideMenu = 27;
constexpr std::size_t kTab = 16;
constexpr std::size_t kPicture = 26;
constexpr std::size_t kLineOfWindow = 130;

constexpr PackBudget kBudgets[] = {
    // The startup manager's cells and the columns that they lie in.
    {413, 413, 13},
    {423, 424, 13},
    {415, 416, 24},
    {418, 418, 32},
    {420, 420, 32},
    {419, 419, 14},
    {426, 433, 32},
    {17226, 17226, 10},
    {17228, 17228, 12},
    {17231, 17231, 9},
    {17232, 17233, 14},
    {17234, 17235, 8},
    {1400, 1402, kButton},
    {1404, 1406, kColumn},
    {1500, 1502, kColumn},
    {1514, 1514, kButton},
    {1515, 1515, kTab},
    {1532, 1532, kTab},
    {1513, 1513, kSideMenu},
    {1601, 1602, kButton},
    {1701, 1702, kSideMenu},
    {1704, 1735, kSideMenu},
    {1740, 1740, kSideMenu},
    {1744, 1752, kSideMenu},
    {1768, 1769, kSideMenu},
    {1800, 1802, kColumn},
    {1803, 1804, kButton},
    {1842, 1842, kButton},
    {1845, 1845, kButton},
    {1858, 1861, 30},
    {1862, 1863, 14},
    {1864, 1864, 34},
    {1865, 1865, 38},
    {1884, 1884, kMenuEntry},
    {1885, 1885, kButton},
    {1900, 1900, 26},
    {1905, 1906, 18},
    {1901, 1907, 22},
    {1908, 1910, 18},
    {4000, 4005, 60},
    {4006, 4006, 12},
    {16002, 16002, kColumn},
    {16200, 16207, kPicture},
    {16214, 16214, kSideMenu},
    {16215, 16215, kPicture},
    {17010, 17010, kBarTitle},
    {17011, 17013, kMenuEntry},
    {17014, 17014, kBarTitle},
    {17015, 17015, kMenuEntry},
    {17016, 17017, kButton},
    {17019, 17020, kMenuEntry},
    {17110, 17110, kBarTitle},
    {17111, 17111, kButton},
    {17135, 17135, kButton},
    {17149, 17150, kMenuEntry},
    {17158, 17158, kBarTitle},
    {17201, 17203, kMenuEntry},
    {17204, 17204, kBarTitle},
    {17206, 17206, kBarTitle},
    {17207, 17210, kMenuEntry},
    {17211, 17211, kBarTitle},
    {17212, 17213, kMenuEntry},
    {17214, 17214, kBarTitle},
    {17215, 17220, kMenuEntry},
    {17221, 17224, kButton},
    {17225, 17230, kColumn},
    {17244, 17244, kLineOfWindow},
    {17251, 17253, kButton},
    {17255, 17255, kButton},
    {17260, 17260, kLineOfWindow},
    {17261, 17262, kColumn},
    {17267, 17267, kButton},
    {17270, 17270, kLineOfWindow},
    {17271, 17272, kColumn},
    {17273, 17273, 28},
    {17275, 17277, kButton},
    {17300, 17305, kMenuEntry},
    {17340, 17340, kButton},
    {17345, 17345, kButton},
    {17351, 17352, kTab},
};

constexpr int kMainBar[] = {17010, 17158, 17014};
constexpr int kScanMenu[] = {17011, 17012, 17013};
constexpr int kToolsMenu[] = {17201, 17202, 17203, 17149, 17150, 17300, 17301, 17305};
constexpr int kHelpMenu[] = {17302, 17303, 17304, 17015};
constexpr int kCompanions[] = {16204, 16205, 16206, 16207, 16215};
constexpr int kStartPage[] = {17010, 17158, 17014, 16200, 16201, 16202, 16203, 16209,
                              16210, 16211, 16204, 16205, 16206, 16207, 16215};
constexpr int kProgress[] = {17010, 17158, 17014, 1885, 17016};
constexpr int kResults[] = {17010, 17158, 17014, 1803, 1804, 1845, 17135, 1842, 1401, 17017, 1402};
constexpr int kResultsPopup[] = {17019, 17020, 1884};
constexpr int kLog[] = {17110, 17111, 1601};
constexpr int kIgnoreList[] = {1803, 1804, 1514, 1710};
constexpr int kBackups[] = {1400, 1401, 1710};
constexpr int kStartup[] = {17206, 17211, 17214, 17204, 17221, 17222, 17223, 17224, 17255};
constexpr int kEntryMenu[] = {17207, 17208, 17209, 17210};
constexpr int kProfileMenu[] = {17212, 17213};
constexpr int kTaskMenu[] = {17215, 17216};
constexpr int kHelpers[] = {17204, 17221, 17222, 17224, 17267, 17255};
constexpr int kUninstaller[] = {17204, 17275, 17267, 17276, 17277, 17255};
constexpr int kRowPopup[] = {17217, 17218, 17219, 17220};
constexpr int kAddTask[] = {417, 414, 17250, 17251};
constexpr int kOptionsGeneral[] = {1511, 1521, 1512, 1531, 17356, 17340, 17342};
constexpr int kOptionsScanning[] = {1522, 1523, 1524, 1525, 1526, 1529, 1530, 1508};
constexpr int kOptionsRemoval[] = {1510, 1520, 1509, 17343};
constexpr int kOptionsPaths[] = {1528, 17345, 1518, 17345, 1519, 17345};

constexpr PackGroup kGroups[] = {
    {"main menu bar", kMainBar},
    {"Scan menu", kScanMenu},
    {"Tools menu", kToolsMenu},
    {"Help menu", kHelpMenu},
    {"companion programs", kCompanions},
    {"start page", kStartPage},
    {"scan window", kProgress},
    {"results", kResults},
    {"popup of the results", kResultsPopup},
    {"log window", kLog},
    {"ignore list", kIgnoreList},
    {"backup manager", kBackups},
    {"startup manager", kStartup},
    {"Entry menu", kEntryMenu},
    {"Profile menu", kProfileMenu},
    {"Tasks menu", kTaskMenu},
    {"browser helpers", kHelpers},
    {"adware uninstaller", kUninstaller},
    {"popup of the tools", kRowPopup},
    {"add task", kAddTask},
    {"options, general", kOptionsGeneral},
    {"options, scanning", kOptionsScanning},
    {"options, removal", kOptionsRemoval},
    {"options, paths", kOptionsPaths},
};

constexpr int kResultsUpper[] = {1803, 1804, 17135, 1845};
constexpr int kResultsLower[] = {1842, 1401, 17017, 1402};
constexpr int kIgnoreRow[] = {1803, 1804, 1514, 1402, 1710};
constexpr int kStartupRow[] = {17221, 17223, 17224, 17255};
constexpr int kHelperRow[] = {17221, 17224, 17267, 17255};
constexpr int kUninstallerRow[] = {17275, 17267, 17276, 17277, 17255};

constexpr PackRow kRows[] = {
    {"results, upper buttons", kResultsUpper, 430},
    {"results, lower buttons", kResultsLower, 430},
    {"ignore list", kIgnoreRow, 555},
    {"startup manager", kStartupRow, 540},
    {"browser helpers", kHelperRow, 540},
    {"adware uninstaller", kUninstallerRow, 555},
};

}  // namespace

const std::span<const PackBudget> kPackBudgets = kBudgets;
const std::span<const PackGroup> kPackGroups = kGroups;
const std::span<const PackRow> kPackRows = kRows;

}  // namespace scourwell::test
