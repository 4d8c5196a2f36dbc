// SPDX-License-Identifier: MIT
#pragma once

#include <span>

#include "machine/system_folders.h"

// What must stay on the disk, for PathGuard. Windows 95, 98 and Me and the NT family share the
// tables: what one of them lacks is never asked for there.
namespace scourwell::vital {

// Scourwell's own files and folders, in whatever folder it lies.
inline constexpr const char* kOwn[] = {
    "Scourwell.exe", "Help", "Ini", "Lang", "errorlog.txt", "ignorespylist.txt", "Setting.ini"};

enum class Extent { Itself, Contents };  // Contents: and everything in it

// A folder within one that is protected with its contents has its own rule.
struct Folder {
  std::string SystemFolders::*above;
  const char* path;
  Extent extent = Extent::Itself;
};
inline constexpr Folder kFolders[] = {
    {&SystemFolders::windows, "AppPatch"},
    {&SystemFolders::windows, "COMMAND"},
    {&SystemFolders::windows, "Downloaded Program Files"},
    {&SystemFolders::windows, "Driver Cache"},
    {&SystemFolders::windows, "Fonts"},
    {&SystemFolders::windows, "Help"},
    {&SystemFolders::windows, "Installer"},
    {&SystemFolders::windows, "Microsoft.NET"},
    {&SystemFolders::windows, "SYSBCKUP"},
    {&SystemFolders::windows, "SysWOW64\\drivers"},
    {&SystemFolders::windows, "SysWOW64\\wbem"},
    {&SystemFolders::windows, "Tasks"},
    {&SystemFolders::windows, "WinSxS"},
    {&SystemFolders::windows, "assembly"},
    {&SystemFolders::windows, "inf"},
    {&SystemFolders::windows, "security"},
    {&SystemFolders::windows, "servicing"},
    {&SystemFolders::windows, "system"},
    {&SystemFolders::system, "CatRoot"},
    {&SystemFolders::system, "CatRoot2"},
    {&SystemFolders::system, "Com"},
    {&SystemFolders::system, "DriverStore"},
    {&SystemFolders::system, "GroupPolicy"},
    {&SystemFolders::system, "IOSUBSYS"},
    {&SystemFolders::system, "Microsoft\\Protect"},
    {&SystemFolders::system, "VMM32"},
    {&SystemFolders::system, "config", Extent::Contents},
    {&SystemFolders::system, "config\\systemprofile"},
    {&SystemFolders::system, "dllcache"},
    {&SystemFolders::system, "drivers\\etc"},
    {&SystemFolders::system, "oobe"},
    {&SystemFolders::system, "ras"},
    {&SystemFolders::system, "spool\\drivers"},
    {&SystemFolders::system, "spool\\prtprocs"},
    {&SystemFolders::system, "wbem\\Repository"},
};
// These lie at the root of each drive; their contents stay, too.
inline constexpr const char* kRootFolders[] = {"Boot", "EFI"};

// Windows does not start, or cannot be used, without these. First at the root of each drive.
inline constexpr const char* kInRoot[] = {
    "arcldr.exe",   "boot.ini",     "bootfont.bin", "bootmgr",    "bootnxt", "bootsect.dos",
    "command.com",  "dblspace.bin", "drvspace.bin", "io.sys",     "jo.sys",  "msdos.sys",
    "ntbootdd.sys", "ntdetect.com", "ntldr",        "winboot.sys"};

inline constexpr const char* kInWindows[] = {
    "classes.dat", "command.com", "dblbuff.sys", "explorer.exe", "himem.sys",
    "ifshlp.sys",  "regedit.exe", "rundll.exe",  "rundll32.exe", "setver.exe",
    "system.dat",  "system.ini",  "user.dat",    "win.com",      "win.ini"};

inline constexpr const char* kInSystem[] = {
    // libraries and programs of both families
    "advapi32.dll", "browseui.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll", "imm32.dll",
    "kernel32.dll", "mpr.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll", "regsvr32.exe",
    "rpcrt4.dll", "rundll32.exe", "setupapi.dll", "shdocvw.dll", "shell32.dll", "shlwapi.dll",
    "urlmon.dll", "user32.dll", "version.dll", "wininet.dll", "winspool.drv", "ws2_32.dll",
    "wsock32.dll",
    // NT family: the start
    "apisetschema.dll", "autochk.exe", "bootvid.dll", "ci.dll", "clfs.sys", "hal.dll",
    "halacpi.dll", "halmacpi.dll", "kdcom.dll", "ntdll.dll", "ntkrnlpa.exe", "ntoskrnl.exe",
    "pshed.dll", "smss.exe", "watchdog.sys", "win32k.sys", "winload.efi", "winload.exe",
    "winresume.exe",
    // its sessions, services and log on
    "authz.dll", "basesrv.dll", "cmd.exe", "credui.dll", "crypt32.dll", "cryptbase.dll",
    "cryptdll.dll", "csrsrv.dll", "csrss.exe", "dnsapi.dll", "eventlog.dll", "framebuf.dll",
    "imagehlp.dll", "kerberos.dll", "kernelbase.dll", "logonui.exe", "lpk.dll", "lsasrv.dll",
    "lsass.exe", "lsm.exe", "msasn1.dll", "msgina.dll", "mswsock.dll", "msv1_0.dll", "nddeapi.dll",
    "netapi32.dll", "netlogon.dll", "ntmarta.dll", "profmap.dll", "psapi.dll", "regapi.dll",
    "rpcss.dll", "samlib.dll", "samsrv.dll", "scesrv.dll", "schannel.dll", "sechost.dll",
    "secur32.dll", "services.exe", "sfc.dll", "sfc_os.dll", "sfcfiles.dll", "shsvcs.dll",
    "spoolss.dll", "sspicli.dll", "svchost.exe", "sxs.dll", "taskmgr.exe", "umpnpmgr.dll",
    "userenv.dll", "userinit.exe", "usp10.dll", "uxtheme.dll", "vga.dll", "wininit.exe",
    "winlogon.exe", "winsrv.dll", "winsta.dll", "wintrust.dll", "wldap32.dll", "ws2help.dll",
    "wtsapi32.dll",
    // its code pages
    "c_1250.nls", "c_1251.nls", "c_1252.nls", "c_1253.nls", "c_1254.nls", "c_1257.nls", "c_437.nls",
    "c_850.nls", "c_852.nls", "c_866.nls", "ctype.nls", "l_intl.nls", "locale.nls",
    "sortdefault.nls", "sortkey.nls", "sorttbls.nls", "unicode.nls",
    // Windows 95, 98 and Me
    "comm.drv", "commdlg.dll", "gdi.exe", "keyboard.drv", "krnl386.exe", "lzexpand.dll",
    "mmsystem.dll", "mouse.drv", "mprexe.exe", "mprserv.dll", "msgsrv32.exe", "setupx.dll",
    "shell.dll", "sound.drv", "system.drv", "systray.exe", "user.exe", "ver.dll", "vga.drv",
    "vmm32.vxd"};

inline constexpr const char* kDrivers[] = {
    "acpi.sys",     "afd.sys",      "atapi.sys",    "ataport.sys",  "cdrom.sys",     "classpnp.sys",
    "clfs.sys",     "cng.sys",      "disk.sys",     "dmboot.sys",   "dmio.sys",      "dmload.sys",
    "fastfat.sys",  "fileinfo.sys", "fltmgr.sys",   "fs_rec.sys",   "ftdisk.sys",    "fvevol.sys",
    "hidclass.sys", "hidparse.sys", "hidusb.sys",   "i8042prt.sys", "intelide.sys",  "isapnp.sys",
    "kbdclass.sys", "kbdhid.sys",   "ks.sys",       "ksecdd.sys",   "ksecpkg.sys",   "mouclass.sys",
    "mouhid.sys",   "mountmgr.sys", "mrxsmb.sys",   "msahci.sys",   "msfs.sys",      "msisadrv.sys",
    "mup.sys",      "ndis.sys",     "netbios.sys",  "netbt.sys",    "netio.sys",     "npfs.sys",
    "ntfs.sys",     "null.sys",     "oprghdlr.sys", "partmgr.sys",  "pci.sys",       "pciide.sys",
    "pciidex.sys",  "pcw.sys",      "rdbss.sys",    "scsiport.sys", "spaceport.sys", "storahci.sys",
    "stornvme.sys", "storport.sys", "swenum.sys",   "tcpip.sys",    "tdi.sys",       "tdx.sys",
    "termdd.sys",   "tm.sys",       "update.sys",   "usbd.sys",     "usbehci.sys",   "usbhub.sys",
    "usbohci.sys",  "usbport.sys",  "usbuhci.sys",  "vdrvroot.sys", "vga.sys",       "videoprt.sys",
    "volmgr.sys",   "volmgrx.sys",  "volsnap.sys",  "volume.sys",   "watchdog.sys",  "wdf01000.sys",
    "wdfldr.sys",   "wmilib.sys"};

// Disks and what replaces parts of vmm32.vxd.
inline constexpr const char* kInIoSubsys[] = {
    "apix.vxd",     "bigmem.drv",   "cdfs.vxd",     "cdtsd.vxd",  "disktsd.vxd",
    "diskvsd.vxd",  "drvspacx.vxd", "esdi_506.pdr", "hsflop.pdr", "rmm.pdr",
    "scsi1hlp.vxd", "scsiport.pdr", "voltrack.vxd"};
inline constexpr const char* kInVmm32[] = {
    "configmg.vxd", "ifsmgr.vxd", "int13.vxd", "ios.vxd", "ntkern.vxd", "vcache.vxd", "vcomm.vxd",
    "vdd.vxd",      "vfat.vxd",   "vkd.vxd",   "vmm.vxd", "vmouse.vxd", "vwin32.vxd"};

struct Files {
  std::string SystemFolders::*above;
  const char* path;
  std::span<const char* const> names;
};
// A 64-bit Windows has a second set of system files.
inline constexpr Files kFiles[] = {
    {&SystemFolders::windows, "", kInWindows},
    {&SystemFolders::windows, "SysWOW64", kInSystem},
    {&SystemFolders::system, "", kInSystem},
    {&SystemFolders::system, "drivers", kDrivers},
    {&SystemFolders::system, "IOSUBSYS", kInIoSubsys},
    {&SystemFolders::system, "VMM32", kInVmm32},
};

// The registry of a user or of the machine, in whatever folder.
inline constexpr const char* kAnywhere[] = {"ntuser.dat", "usrclass.dat"};

}  // namespace scourwell::vital
