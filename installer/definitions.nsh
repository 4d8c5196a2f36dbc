; SPDX-License-Identifier: MIT
; Definitions that are newer than ours stay. The file keeps the number of its release ("1-1-0-0") with
; each character shifted by twelve: "-" is "9" there, "0" is "<", "9" is "E".

; The next number of $1 in $3, the rest in $1.
Function NextNumber
  Push $2
  Push $4
  StrCpy $3 0
  next:
    StrCpy $2 $1 1
    StrCmp $2 "" done
    StrCpy $1 $1 "" 1
    StrCmp $2 "9" done
    StrCpy $4 -1
    StrCmp $2 "<" 0 +2
      StrCpy $4 0
    StrCmp $2 "=" 0 +2
      StrCpy $4 1
    StrCmp $2 ">" 0 +2
      StrCpy $4 2
    StrCmp $2 "?" 0 +2
      StrCpy $4 3
    StrCmp $2 "@" 0 +2
      StrCpy $4 4
    StrCmpS $2 "A" 0 +2
      StrCpy $4 5
    StrCmpS $2 "B" 0 +2
      StrCpy $4 6
    StrCmpS $2 "C" 0 +2
      StrCpy $4 7
    StrCmpS $2 "D" 0 +2
      StrCpy $4 8
    StrCmpS $2 "E" 0 +2
      StrCpy $4 9
    IntCmp $4 0 0 next 0
    IntOp $3 $3 * 10
    IntOp $3 $3 + $4
    Goto next
  done:
  Pop $4
  Pop $2
FunctionEnd

; Sets $R1 to 1 when the release $R2 is newer than $R3.
Function IsNewer
  StrCpy $R1 0
  next:
    StrCmp "$R2$R3" "" done
    StrCpy $1 $R2
    Call NextNumber
    StrCpy $R2 $1
    StrCpy $R4 $3
    StrCpy $1 $R3
    Call NextNumber
    StrCpy $R3 $1
    IntCmp $R4 $3 next done 0
    StrCpy $R1 1
  done:
FunctionEnd

; Newer ones are put aside, beside where they lie, while ours are unpacked. A set-up that was ended
; by force has left its user's there.
Function SaveDefinitions
  Call BringDefinitionsBack
  IfFileExists "$INSTDIR\Ini\update.ref" 0 done
  ReadINIStr $R2 "$INSTDIR\Ini\update.ref" "SETTINGS" "UPDATE-FILE-NUMBER"
  StrCpy $R3 "${RELEASE}"
  Call IsNewer
  ${If} $R1 = 1
    Rename "$INSTDIR\Ini\update.ref" "$INSTDIR\Ini\update.kept"
  ${EndIf}
  done:
FunctionEnd

Function BringDefinitionsBack
  IfFileExists "$INSTDIR\Ini\update.kept" 0 done
  Delete "$INSTDIR\Ini\update.ref"
  Rename "$INSTDIR\Ini\update.kept" "$INSTDIR\Ini\update.ref"
  done:
FunctionEnd
