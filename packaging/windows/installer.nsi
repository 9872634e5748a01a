; The installer. Called by build.sh, which defines VERSION, FOLDER, LISTS, SIGN and OUTPUT.
; A 64-bit program, as what it installs.
Target amd64-unicode
SetCompressor /SOLID lzma
!define PRODUCT "L'Ardane et ses provinces"
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Ardane"

; For the player alone, or for everybody where he may.
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_INSTALLMODE_INSTDIR "Ardane"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_USE_PROGRAMFILES64
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1036 "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=1036 "FileDescription" "Installation de ${PRODUCT}"
VIAddVersionKey /LANG=1036 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1036 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1036 "CompanyName" "Mirabonde"
VIAddVersionKey /LANG=1036 "LegalCopyright" "Mirabonde"

!define MUI_ICON "${SIGN}"
!define MUI_UNICON "${SIGN}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE_3LINES
!define MUI_WELCOMEPAGE_TEXT "Le jeu sera installé sur cet ordinateur, pour vous seulement ou pour tous ceux qui s'en servent.$\r$\n$\r$\nVos scores, vos parties et vos réglages ne sont pas touchés."
!define MUI_FINISHPAGE_TITLE_3LINES
!define MUI_FINISHPAGE_RUN "$INSTDIR\ardane.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Jouer tout de suite"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "French"

; A kind of file that a double click opens with the game.
!macro kind EXTENSION ID WORDS
  WriteRegStr SHCTX "Software\Classes\${ID}" "" "${WORDS}"
  WriteRegStr SHCTX "Software\Classes\${ID}\DefaultIcon" "" "$INSTDIR\ardane.exe,0"
  WriteRegStr SHCTX "Software\Classes\${ID}\shell\open\command" "" '"$INSTDIR\ardane.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids" "${ID}" ""
  ReadRegStr $0 SHCTX "Software\Classes\${EXTENSION}" ""
  ${If} $0 == ""
    WriteRegStr SHCTX "Software\Classes\${EXTENSION}" "" "${ID}"
  ${EndIf}
!macroend

!macro unkind EXTENSION ID
  DeleteRegKey SHCTX "Software\Classes\${ID}"
  DeleteRegValue SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids" "${ID}"
  ReadRegStr $0 SHCTX "Software\Classes\${EXTENSION}" ""
  ${If} $0 == "${ID}"
    DeleteRegValue SHCTX "Software\Classes\${EXTENSION}" ""
  ${EndIf}
  DeleteRegKey /ifempty SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "Software\Classes\${EXTENSION}"
!macroend

!macro tell_the_desktop
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section
  !include "${LISTS}/install.nsh"
  SetOutPath "$INSTDIR"
  File "installation.txt"
  WriteUninstaller "$INSTDIR\desinstaller.exe"
  CreateShortcut "$SMPROGRAMS\${PRODUCT}.lnk" "$INSTDIR\ardane.exe"
  !insertmacro kind ".CAI" "Ardane.Partie" "Partie de ${PRODUCT}"
  !insertmacro kind ".SCI" "Ardane.Parametrage" "Paramétrage de ${PRODUCT}"
  !insertmacro tell_the_desktop
  WriteRegStr SHCTX "${KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr SHCTX "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${KEY}" "DisplayIcon" "$INSTDIR\ardane.exe,0"
  WriteRegStr SHCTX "${KEY}" "Publisher" "Mirabonde"
  WriteRegStr SHCTX "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${KEY}" "UninstallString" '"$INSTDIR\desinstaller.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${KEY}" "QuietUninstallString" '"$INSTDIR\desinstaller.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD SHCTX "${KEY}" "EstimatedSize" "$0"
SectionEnd

; What the player has written is his: files of no list stay, and so do their folder and his settings.
Section "Uninstall"
  !include "${LISTS}/uninstall.nsh"
  Delete "$INSTDIR\installation.txt"
  Delete "$INSTDIR\desinstaller.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${PRODUCT}.lnk"
  !insertmacro unkind ".CAI" "Ardane.Partie"
  !insertmacro unkind ".SCI" "Ardane.Parametrage"
  !insertmacro tell_the_desktop
  DeleteRegKey SHCTX "${KEY}"
SectionEnd
