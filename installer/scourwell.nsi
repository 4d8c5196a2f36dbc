; SPDX-License-Identifier: MIT
; The set-up program. scripts/make-setup compiles it and defines
;   VERSION   1.0.0           LISTS    the folder with put.nsh and take.nsh: the files of the program
;   RELEASE   of the definitions, as update.ref spells it
;   SIZE_KB   of all files    OUTPUT   what to write
; The ANSI stub runs on Windows 95. /S asks nothing, /D=C:\folder comes last; uninstalling with /S keeps
; the backups unless /BACKUPS=delete is given. Exit codes: 1 cancelled, 2 the program would not close,
; 3 the folder cannot be written to or its disk is full, 4 a newer version is there, 5 another set-up runs.
Unicode false
SetCompressor /SOLID lzma
SetDateSave off
CRCCheck force
!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include FileFunc.nsh
!include WinMessages.nsh

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Scourwell"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define RUN_VALUE "ZURANTISPY"
!define STORE_KEY "Software\Scourwell"
!define VERB_COMMAND '"$INSTDIR\Scourwell.exe" "%1"'
!define RUN_COMMAND '"$INSTDIR\Scourwell.exe" /STARTUP'
!define WINDOW_CLASS "frmMain"

Name "Scourwell"
OutFile "${OUTPUT}"
InstallDir ""
RequestExecutionLevel highest
XPStyle on
BrandingText "Scourwell ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "Scourwell"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "Scourwell Setup"
VIAddVersionKey /LANG=0 "LegalCopyright" "The Scourwell developers"

!define MUI_ICON "..\art\scourwell.ico"
!define MUI_UNICON "..\art\scourwell.ico"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "header.bmp"
!define MUI_HEADERIMAGE_UNBITMAP "header.bmp"
!define MUI_WELCOMEFINISHPAGE_BITMAP "wizard.bmp"
!define MUI_UNWELCOMEFINISHPAGE_BITMAP "wizard.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!define MUI_FINISHPAGE_RUN "$INSTDIR\Scourwell.exe"
!define MUI_FINISHPAGE_NOREBOOTSUPPORT

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "..\LICENSE"
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH

!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES

; The first language is the one of systems that speak none of them.
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Dutch"
!insertmacro MUI_LANGUAGE "French"
!insertmacro MUI_LANGUAGE "German"
!insertmacro MUI_LANGUAGE "Italian"
!insertmacro MUI_LANGUAGE "Japanese"
!insertmacro MUI_LANGUAGE "Polish"
!insertmacro MUI_LANGUAGE "Portuguese"
!insertmacro MUI_LANGUAGE "Russian"
!insertmacro MUI_LANGUAGE "Spanish"
!include texts.nsh
!include running.nsh
!include shell_entries.nsh
!include folder.nsh
!include definitions.nsh

; --- before the pages --------------------------------------------------------------------------

; Whoever is no administrator installs for himself.
!macro ForWhom
  SetShellVarContext all
  UserInfo::GetAccountType
  Pop $0
  ${If} ${IsNT}
  ${AndIf} $0 != "Admin"
    SetShellVarContext current
  ${EndIf}
!macroend

Function .onInit
  Call RefuseSecond
  !insertmacro ForWhom
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR "$PROGRAMFILES\Scourwell"
    ${If} ${IsNT}
    ${AndIf} $0 != "Admin"
      StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Scourwell"
    ${EndIf}
  ${EndIf}
  Call RefuseOlder
  ${If} ${Silent}
    Call CheckFolder
  ${EndIf}
  Call OfferWhatIsThere
FunctionEnd

; Two at once would write the same files. The name lasts as long as this process.
Function RefuseSecond
  System::Call 'kernel32::CreateMutexA(i 0, i 0, t "ScourwellSetup") i .r1 ?e'
  Pop $0
  ${If} $0 = 183   ; ERROR_ALREADY_EXISTS
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(SetupRuns)" /SD IDOK
    SetErrorLevel 5
    Quit
  ${EndIf}
FunctionEnd

; A newer version is replaced only when its user says so.
Function RefuseOlder
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
  ${If} $0 == ""
    Return
  ${EndIf}
  ${VersionCompare} "$0" "${VERSION}" $1
  ${If} $1 == 1
    MessageBox MB_YESNO|MB_ICONEXCLAMATION|MB_DEFBUTTON2 "$(NewerIsThere) ($0)" /SD IDNO IDYES done
    SetErrorLevel 4
    Quit
  ${EndIf}
  done:
FunctionEnd

; --- what is installed -------------------------------------------------------------------------

Section "Scourwell" SecProgram
  SectionIn RO
  Call AskToClose
  Call LookAtFolder
  Call SaveDefinitions
  SetOverwrite on
  ClearErrors
  !include "${LISTS}\put.nsh"
  WriteUninstaller "$INSTDIR\Uninstall.exe"
  ${If} ${Errors}
    Call GiveUp
    MessageBox MB_OK|MB_ICONSTOP "$(CannotWrite)$\r$\n$INSTDIR" /SD IDOK
    Quit
  ${EndIf}
  Call BringDefinitionsBack
  CreateDirectory "$SMPROGRAMS\Scourwell"
  CreateShortCut "$SMPROGRAMS\Scourwell\Scourwell.lnk" "$INSTDIR\Scourwell.exe"
  CreateShortCut "$SMPROGRAMS\Scourwell\$(HelpLink).lnk" "$INSTDIR\Help\index.html"
  CreateShortCut "$SMPROGRAMS\Scourwell\$(UninstallLink).lnk" "$INSTDIR\Uninstall.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Scourwell ${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Scourwell.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "The Scourwell developers"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "MenuHelp" "$SMPROGRAMS\Scourwell\$(HelpLink).lnk"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "MenuUninstall" "$SMPROGRAMS\Scourwell\$(UninstallLink).lnk"
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  ; The program speaks the language of its set-up, until its user chooses another.
  ReadRegStr $0 HKCU "${STORE_KEY}\Language" "Name"
  ${If} $0 == ""
    WriteRegStr HKCU "${STORE_KEY}\Language" "Name" "$(PackName)"
  ${EndIf}
SectionEnd

Section /o "$(DesktopLink)" SecDesktop
  CreateShortCut "$DESKTOP\Scourwell.lnk" "$INSTDIR\Scourwell.exe"
SectionEnd

!macro WriteVerb CLASS
  WriteRegStr HKCU "Software\Classes\${CLASS}\shell\Scourwell" "" "$(ScanVerb)"
  WriteRegStr HKCU "Software\Classes\${CLASS}\shell\Scourwell\command" "" '${VERB_COMMAND}'
!macroend

Section /o "$(ExplorerVerb)" SecVerb
  !insertmacro WriteVerb Directory
  !insertmacro WriteVerb Drive
SectionEnd

Section /o "$(ScanAtStart)" SecStartup
  WriteRegStr HKCU "${RUN_KEY}" "${RUN_VALUE}" '${RUN_COMMAND}'
  WriteRegStr HKCU "${STORE_KEY}\RunStartup" "RunStartup" "True"
SectionEnd

; What was chosen once, and is not any more.
Section "-Undo"
  ${IfNot} ${SectionIsSelected} ${SecDesktop}
    Delete "$DESKTOP\Scourwell.lnk"
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${SecVerb}
    Call ForgetVerbs
  ${EndIf}
  ${IfNot} ${SectionIsSelected} ${SecStartup}
    Call ForgetStartup
  ${EndIf}
SectionEnd

; What is there stays chosen; what leads to another copy is that copy's. Windows 2000 is the first
; whose Explorer reads the user's own classes.
Function OfferWhatIsThere
  ${If} ${FileExists} "$DESKTOP\Scourwell.lnk"
    !insertmacro SelectSection ${SecDesktop}
  ${EndIf}
  ReadRegStr $0 HKCU "Software\Classes\Directory\shell\Scourwell\command" ""
  ${If} $0 == '${VERB_COMMAND}'
    !insertmacro SelectSection ${SecVerb}
  ${EndIf}
  ReadRegStr $0 HKCU "${RUN_KEY}" "${RUN_VALUE}"
  ${If} $0 == '${RUN_COMMAND}'
    !insertmacro SelectSection ${SecStartup}
  ${EndIf}
  ${IfNot} ${AtLeastWin2000}
    !insertmacro UnselectSection ${SecVerb}
    SectionSetText ${SecVerb} ""
  ${EndIf}
FunctionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} "$(AboutProgram)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SecVerb} "$(AboutVerb)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SecStartup} "$(AboutStartup)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

!include uninstall.nsh
