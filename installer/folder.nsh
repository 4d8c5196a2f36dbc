; SPDX-License-Identifier: MIT
; Whether the folder can take the program, and what becomes of it when the set-up fails half-way.

Var WasThere   ; 1 when the folder held the program before

!macro CanWriteAs PREFIX
; Sets $0 to 1 when a file can be made in the folder. Tried, because no question to the system answers
; for every kind of disk.
Function ${PREFIX}CanWrite
  ClearErrors
  GetTempFileName $0 "$INSTDIR"
  FileOpen $1 $0 a
  ${If} ${Errors}
    StrCpy $0 0
    Return
  ${EndIf}
  FileClose $1
  Delete $0
  StrCpy $0 1
FunctionEnd
!macroend

!insertmacro CanWriteAs ""
!insertmacro CanWriteAs "un."

!macro RefuseFolder TEXT
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}$\r$\n$INSTDIR" /SD IDOK
  ${If} ${Silent}
    SetErrorLevel 3
    Quit
  ${EndIf}
  Abort
!macroend

Function CheckFolder
  StrCpy $R9 ""
  IfFileExists "$INSTDIR\*.*" 0 +2
    StrCpy $R9 "there"
  CreateDirectory "$INSTDIR"
  Call CanWrite
  ${If} $R9 != "there"
    RMDir "$INSTDIR"
  ${EndIf}
  ${If} $0 = 0
    !insertmacro RefuseFolder "$(CannotWrite)"
  ${EndIf}
  ; The first Windows 95 cannot tell; then it is tried.
  ${GetRoot} "$INSTDIR" $0
  ClearErrors
  ${DriveSpace} "$0\" "/D=F /S=M" $1
  ${IfNot} ${Errors}
    IntOp $0 ${SIZE_KB} / 1024
    ${If} $1 <= $0
      !insertmacro RefuseFolder "$(DiskFull)"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function LookAtFolder
  StrCpy $WasThere 0
  IfFileExists "$INSTDIR\Scourwell.exe" 0 +2
    StrCpy $WasThere 1
FunctionEnd

; Half a program is of no use to anybody. Over an earlier one the next attempt begins where this ends.
Function GiveUp
  SetErrorLevel 3
  ${If} $WasThere = 0
    !include "${LISTS}\take.nsh"
    Delete "$INSTDIR\Uninstall.exe"
    RMDir "$INSTDIR\Lang"
    RMDir "$INSTDIR\Help"
    RMDir "$INSTDIR\Ini"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
  ${EndIf}
  Call BringDefinitionsBack
FunctionEnd

; A disk that fills up meanwhile ends the set-up here.
Function .onInstFailed
  Call GiveUp
FunctionEnd
