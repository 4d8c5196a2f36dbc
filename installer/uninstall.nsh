; SPDX-License-Identifier: MIT
; Takes away what was installed and what the program made beside itself, and nothing else: whatever the
; user put into the folder stays, and the folder with it.

Section "un.Scourwell" UnProgram
  SectionIn RO
  Call un.AskToClose
  !include "${LISTS}\take.nsh"
  Delete "$INSTDIR\Ini\update.old"
  Delete "$INSTDIR\Setting.ini"
  Delete "$INSTDIR\errorlog.txt"
  Delete "$INSTDIR\ignorespylist.txt"
  Delete "$INSTDIR\ignorespytemp.txt"
  Delete "$INSTDIR\ScanLog*.txt"
  Delete "$INSTDIR\Remove.reg"
  RMDir "$INSTDIR\Lang"
  RMDir "$INSTDIR\Help"
  RMDir "$INSTDIR\Ini"
  ; The language of the set-up named the links.
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "MenuHelp"
  Delete "$0"
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "MenuUninstall"
  Delete "$0"
  Delete "$SMPROGRAMS\Scourwell\Scourwell.lnk"
  RMDir "$SMPROGRAMS\Scourwell"
  Delete "$DESKTOP\Scourwell.lnk"
  Call un.ForgetShellEntries
  Call un.ForgetSettings
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd

; Backups, and what the startup manager took out: only they can bring it back.
Section /o "un.$(DeleteBackups)" UnBackups
  Call un.DeleteBackups
  Delete "$INSTDIR\SaveProf.pro"
  Delete "$INSTDIR\BHOProf.pro"
  Delete "$INSTDIR\SaveProf.pro.bad"
  Delete "$INSTDIR\BHOProf.pro.bad"
  Delete "$INSTDIR\Disabled Startup\*.*"
  RMDir "$INSTDIR\Disabled Startup"
  DeleteRegKey HKCU "${STORE_KEY}"
  RMDir "$INSTDIR"
SectionEnd

; A backup is one file, or pieces that are numbered from .q01 on and end with it.
Function un.DeleteBackups
  FindFirst $0 $1 "$INSTDIR\*.qzp"
  next:
    StrCmp $1 "" done
    StrCpy $2 $1 -4
    StrCpy $3 1
  piece:
    IntFmt $4 "%02d" $3
    IfFileExists "$INSTDIR\$2.q$4" 0 whole
    Delete "$INSTDIR\$2.q$4"
    IntOp $3 $3 + 1
    Goto piece
  whole:
    Delete "$INSTDIR\$1"
    FindNext $0 $1
    Goto next
  done:
  FindClose $0
FunctionEnd

Function un.onInit
  !insertmacro ForWhom
  ${GetParameters} $0
  ${GetOptions} $0 "/BACKUPS=" $1
  ${If} $1 == "delete"
    !insertmacro SelectSection ${UnBackups}
  ${EndIf}
FunctionEnd

!macro ForgetVerb CLASS
  ReadRegStr $0 HKCU "Software\Classes\${CLASS}\shell\Scourwell\command" ""
  ${If} $0 == '"$INSTDIR\Scourwell.exe" "%1"'
    DeleteRegKey HKCU "Software\Classes\${CLASS}\shell\Scourwell"
    DeleteRegKey /ifempty HKCU "Software\Classes\${CLASS}\shell"
    DeleteRegKey /ifempty HKCU "Software\Classes\${CLASS}"
  ${EndIf}
!macroend

; Those that lead to another copy are that copy's.
Function un.ForgetShellEntries
  !insertmacro ForgetVerb Directory
  !insertmacro ForgetVerb Drive
  ReadRegStr $0 HKCU "${RUN_KEY}" "${RUN_VALUE}"
  ${If} $0 == '"$INSTDIR\Scourwell.exe" /STARTUP'
    DeleteRegValue HKCU "${RUN_KEY}" "${RUN_VALUE}"
  ${EndIf}
FunctionEnd

; Backups that stay are proved by what the key "Backup" holds.
Function un.ForgetSettings
  ReadRegStr $R5 HKCU "${STORE_KEY}\Path" "BackupPath"
  StrCpy $0 0
  next:
    EnumRegKey $1 HKCU "${STORE_KEY}" $0
    StrCmp $1 "" done
    ${If} $1 == "Backup"
      IntOp $0 $0 + 1
    ${Else}
      ClearErrors
      DeleteRegKey HKCU "${STORE_KEY}\$1"
      IfErrors 0 next
      IntOp $0 $0 + 1
    ${EndIf}
    Goto next
  done:
  ; Without a backup there is nothing to prove.
  ${IfNot} ${FileExists} "$INSTDIR\*.qzp"
  ${AndIfNot} ${FileExists} "$R5\*.qzp"
    DeleteRegKey HKCU "${STORE_KEY}"
  ${EndIf}
FunctionEnd
