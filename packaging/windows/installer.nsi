; The installer for one person, who needs no administrator's rights for it. The command line defines VERSION,
; PROGRAM (the file to install) and INSTALLER (the file to make).
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
Name "Quarvelle"
OutFile "${INSTALLER}"
InstallDir "$LOCALAPPDATA\Programs\Quarvelle"

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey ProductName "Quarvelle"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileDescription "Installer of Quarvelle"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey CompanyName "Quarvelle developers"
VIAddVersionKey LegalCopyright "The Quarvelle developers. All rights reserved until a licence is chosen."

!include MUI2.nsh
!include FileFunc.nsh
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\quarvelle.exe"
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

!define START_MENU_ENTRY "$SMPROGRAMS\Quarvelle.lnk"
!define UNINSTALL_KEYS "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define UNINSTALL_KEY "${UNINSTALL_KEYS}\Quarvelle"

; A running program's file can't be replaced or deleted.
!macro RefuseWhileRunning
  ${If} ${FileExists} "$INSTDIR\quarvelle.exe"
    ClearErrors
    FileOpen $0 "$INSTDIR\quarvelle.exe" a
    ${If} ${Errors}
      MessageBox MB_OK|MB_ICONEXCLAMATION "Quarvelle is running. Close it and try again." /SD IDOK
      SetErrorLevel 2
      Quit
    ${EndIf}
    FileClose $0
  ${EndIf}
!macroend

Section
  !insertmacro RefuseWhileRunning
  SetOutPath "$INSTDIR"
  File "/oname=quarvelle.exe" "${PROGRAM}"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "${START_MENU_ENTRY}" "$INSTDIR\quarvelle.exe" "" "" "" "" "" "Solve and print complete magic squares"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "Quarvelle"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\quarvelle.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "Quarvelle developers"
  WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize $0
SectionEnd

Section Uninstall
  !insertmacro RefuseWhileRunning
  Delete "$INSTDIR\quarvelle.exe"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "${START_MENU_ENTRY}"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  ; What all such programs share goes with the last of them.
  RMDir "$LOCALAPPDATA\Programs"
  DeleteRegKey /ifempty HKCU "${UNINSTALL_KEYS}"
SectionEnd
