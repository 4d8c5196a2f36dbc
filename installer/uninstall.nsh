; SPDX-License-Identifier: MIT
; Takes away what was installed and what the program made beside itself, and nothing else: whatever the
; user put into the folder stays, and the folder with it.

Section "un.Scourwell" UnProgram
  SectionIn RO
  Call un.CanWrite
  ${If} $0 = 0
    MessageBox MB_OK|MB_ICONSTOP "$(CannotRemove)$\r$\n$INSTDIR" /SD IDOK
    SetErrorLevel 3
    Quit
  ${EndIf}
  Call un.AskToClose
  !include "${LISTS}\take.nsh"
  Delete "$INSTDIR\Ini\update.old"
  Delete "$INSTDIR\Setting.ini"
  Delete "$INSTDIR\errorlog.txt"
  Delete "$INSTDIR\ignorespylist.txt"
  Delete "$INSTDIR\ignorespytemp.txt"
  Delete "$INSTDIR\ScanLog*.txt"
  Delete "$INSTDIR\Remove.reg"
  ; A crash leaves what was to take a file's place.
  Delete "$INSTDIR\*.~scw"
  Delete "$INSTDIR\Ini\*.~scw"
  Delete "$INSTDIR\~scw*.tmp"
  Delete "$INSTDIR\Ini\~scw*.tmp"
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
  Call un.ForgetVerbs
  Call un.ForgetStartup
  Call un.ForgetSettings
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd

; Backups, and what the startup manager took out: only they can bring it back.
Section /o "un.$(DeleteBackups)" UnBackups
  StrCpy $R6 $INSTDIR
  Call un.DeleteBackups
  ${If} $R5 != ""
    StrCpy $R6 $R5
    Call un.DeleteBackups
  ${EndIf}
  Delete "$INSTDIR\SaveProf.pro"
  Delete "$INSTDIR\BHOProf.pro"
  Delete "$INSTDIR\SaveProf.pro.bad"
  Delete "$INSTDIR\BHOProf.pro.bad"
  Delete "$INSTDIR\Disabled Startup\Current User\*.*"
  Delete "$INSTDIR\Disabled Startup\All Users\*.*"
  Delete "$INSTDIR\Disabled Startup\win.ini\*.*"
  Delete "$INSTDIR\Disabled Startup\Users\*.*"
  Call un.DeleteShortcutsOfUsers
  RMDir "$INSTDIR\Disabled Startup\Users"
  RMDir "$INSTDIR\Disabled Startup\Current User"
  RMDir "$INSTDIR\Disabled Startup\All Users"
  RMDir "$INSTDIR\Disabled Startup\win.ini"
  RMDir "$INSTDIR\Disabled Startup"
  DeleteRegKey HKCU "${STORE_KEY}"
  RMDir "$INSTDIR"
SectionEnd

; Each user's folder is named by his security identifier.
Function un.DeleteShortcutsOfUsers
  FindFirst $0 $1 "$INSTDIR\Disabled Startup\S-1-*"
  next:
    StrCmp $1 "" done
    Delete "$INSTDIR\Disabled Startup\$1\*.*"
    RMDir "$INSTDIR\Disabled Startup\$1"
    FindNext $0 $1
    Goto next
  done:
  FindClose $0
FunctionEnd

; Those of the folder $R6. A backup is one file, or pieces that are numbered from .q01 on and end with it.
Function un.DeleteBackups
  FindFirst $0 $1 "$R6\*.qzp"
  next:
    StrCmp $1 "" done
    StrCpy $2 $1 -4
    StrCpy $3 1
  piece:
    IntFmt $4 "%02d" $3
    IfFileExists "$R6\$2.q$4" 0 whole
    Delete "$R6\$2.q$4"
    IntOp $3 $3 + 1
    Goto piece
  whole:
    Delete "$R6\$1"
    FindNext $0 $1
    Goto next
  done:
  FindClose $0
FunctionEnd

; Whoever takes it away, it goes from where it was registered.
Function un.ForWhom
  SetShellVarContext all
  StrCpy $0 $INSTDIR "" -1
  StrCpy $1 $INSTDIR
  ${If} $0 == "\"
    StrCpy $1 $INSTDIR -1
  ${EndIf}
  ReadRegStr $0 HKCU "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == $1
    SetShellVarContext current
  ${EndIf}
FunctionEnd

Function un.onInit
  Call un.ForWhom
  ${GetParameters} $0
  ${GetOptions} $0 "/BACKUPS=" $1
  ${If} $1 == "delete"
    !insertmacro SelectSection ${UnBackups}
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
  ; A later installation finds those that lie elsewhere.
  ${ElseIf} $R5 != $INSTDIR
  ${AndIf} ${FileExists} "$R5\*.qzp"
    WriteRegStr HKCU "${STORE_KEY}\Path" "BackupPath" "$R5"
  ${EndIf}
FunctionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${UnProgram} "$(AboutProgram)"
  !insertmacro MUI_DESCRIPTION_TEXT ${UnBackups} "$(AboutBackups)"
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END
