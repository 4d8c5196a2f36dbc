; SPDX-License-Identifier: MIT
; A Scourwell that runs is asked to close, as its user would do it. One that works on a scan asks its
; user first, so there is time; nothing is ever ended by force.

; A program that runs cannot be opened for writing.
!macro LookAtProgram NAME
  ${If} ${FileExists} "$INSTDIR\${NAME}"
    SetFileAttributes "$INSTDIR\${NAME}" NORMAL
    ClearErrors
    FileOpen $1 "$INSTDIR\${NAME}" a
    ${If} ${Errors}
      StrCpy $R1 1
    ${Else}
      FileClose $1
    ${EndIf}
  ${EndIf}
!macroend

!macro AskToCloseAs PREFIX
; The window of the program in $0; 0 without one. Others may use the same name for their class. While
; it scans its title begins with how far it is.
Function ${PREFIX}FindProgram
  StrCpy $0 0
  next:
    FindWindow $0 "${WINDOW_CLASS}" "" 0 $0
    StrCmp $0 0 done
    System::Call 'user32::GetWindowTextA(i r0, t .r1, i 100)'
    StrCpy $3 0
  look:
    StrCpy $2 $1 9 $3
    StrCmp $2 "" next
    StrCmp $2 "Scourwell" done
    IntOp $3 $3 + 1
    Goto look
  done:
FunctionEnd

; Sets $R1 to 1 when one of the programs runs: there is no window while it starts, nor for the console.
Function ${PREFIX}FindHeld
  StrCpy $R1 0
  !insertmacro LookAtProgram "Scourwell.exe"
  !insertmacro LookAtProgram "ScourwellCon.exe"
FunctionEnd

Function ${PREFIX}AskToClose
  again:
    StrCpy $R0 0
    StrCpy $R2 0   ; the window that was asked
    Call ${PREFIX}FindProgram
    Call ${PREFIX}FindHeld
    ${If} $0 = 0
    ${AndIf} $R1 = 0
      Return
    ${EndIf}
    MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "$(IsRunning)" /SD IDOK IDOK wait
    SetErrorLevel 1
    Quit
  wait:
    ${If} $0 <> $R2
      System::Call 'user32::PostMessageA(i r0, i ${WM_CLOSE}, i 0, i 0)'
      StrCpy $R2 $0
    ${EndIf}
    Sleep 250
    Call ${PREFIX}FindProgram
    Call ${PREFIX}FindHeld
    ${If} $0 = 0
    ${AndIf} $R1 = 0
      Return
    ${EndIf}
    IntOp $R0 $R0 + 1
    IntCmp $R0 60 0 wait 0
    IfSilent 0 again
    SetErrorLevel 2
    Quit
FunctionEnd
!macroend

!insertmacro AskToCloseAs ""
!insertmacro AskToCloseAs "un."
