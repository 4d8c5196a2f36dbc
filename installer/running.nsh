; SPDX-License-Identifier: MIT
; A Scourwell that runs is asked to close, as its user would do it. One that works on a scan asks its
; user first, so there is time; nothing is ever ended by force.

!macro AskToCloseAs PREFIX
; The window of the program in $0; 0 without one. Others may use the same name for their class.
Function ${PREFIX}FindProgram
  Push $1
  Push $2
  StrCpy $0 0
  next:
    FindWindow $0 "${WINDOW_CLASS}" "" 0 $0
    ${If} $0 <> 0
      System::Call 'user32::GetWindowTextA(i r0, t .r1, i 100)'
      StrCpy $2 $1 9
      StrCmp $2 "Scourwell" 0 next
    ${EndIf}
  Pop $2
  Pop $1
FunctionEnd

Function ${PREFIX}AskToClose
  again:
    Call ${PREFIX}FindProgram
    ${If} $0 = 0
      Return
    ${EndIf}
    MessageBox MB_OKCANCEL|MB_ICONEXCLAMATION "$(IsRunning)" /SD IDOK IDOK close
    SetErrorLevel 1
    Quit
  close:
    System::Call 'user32::PostMessageA(i r0, i ${WM_CLOSE}, i 0, i 0)'
    StrCpy $R0 0
  wait:
    Sleep 250
    Call ${PREFIX}FindProgram
    ${If} $0 = 0
      Sleep 500   ; its file is held a moment longer than its window
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
