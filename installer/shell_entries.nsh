; SPDX-License-Identifier: MIT
; Takes back what leads to this copy from Explorer and from the start of Windows. What leads to another
; copy is that copy's.

!macro ForgetVerb CLASS
  ReadRegStr $0 HKCU "Software\Classes\${CLASS}\shell\Scourwell\command" ""
  ${If} $0 == '${VERB_COMMAND}'
    DeleteRegKey HKCU "Software\Classes\${CLASS}\shell\Scourwell"
    DeleteRegKey /ifempty HKCU "Software\Classes\${CLASS}\shell"
    DeleteRegKey /ifempty HKCU "Software\Classes\${CLASS}"
  ${EndIf}
!macroend

!macro ShellEntriesAs PREFIX
Function ${PREFIX}ForgetVerbs
  !insertmacro ForgetVerb Directory
  !insertmacro ForgetVerb Drive
FunctionEnd

Function ${PREFIX}ForgetStartup
  ReadRegStr $0 HKCU "${RUN_KEY}" "${RUN_VALUE}"
  ${If} $0 == '${RUN_COMMAND}'
    DeleteRegValue HKCU "${RUN_KEY}" "${RUN_VALUE}"
    WriteRegStr HKCU "${STORE_KEY}\RunStartup" "RunStartup" "False"
  ${EndIf}
FunctionEnd
!macroend

!insertmacro ShellEntriesAs ""
!insertmacro ShellEntriesAs "un."
