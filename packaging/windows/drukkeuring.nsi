; The setup of the Windows program, for the user who runs it: it asks for no administrator, and touches nothing that is
; another user's. Made by the target `packages`, which writes PRODUCT from product.nsh.in.
; The settings of Tarvik (HKCU\Software\Ondor\Tarvik) are not the program's own, and stay whatever happens.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma

!include MUI2.nsh
!include LogicLib.nsh
!include "${PRODUCT}"

!define EXE "drukkeuring.exe"
!define REMOVER "verwijderen.exe"
!define ENTRIES "Software\Microsoft\Windows\CurrentVersion\Uninstall"
!define ENTRY "${ENTRIES}\Drukkeuring"
!define SHORTCUT "$SMPROGRAMS\${TITLE}.lnk"
!define HANDBOOK_SHORTCUT "$SMPROGRAMS\${TITLE} - handleiding.lnk"

Name "${TITLE}"
OutFile "${OUTPUT}"
BrandingText "${TITLE} ${VERSION}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Drukkeuring"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"
ManifestSupportedOS all
ManifestDPIAware true
ShowInstDetails nevershow
ShowUninstDetails nevershow

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PICTURE}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE "${TITLE} installeren"
!define MUI_WELCOMEPAGE_TEXT "Met dit programma drukt u IBAN-acceptgiroformulieren af voor de drukkeuring, met de \
instellingen van Tarvik.$\r$\n$\r$\nHet wordt alleen voor u geïnstalleerd. Een eerdere versie wordt vervangen; de \
instellingen van Tarvik blijven zoals ze zijn.$\r$\n$\r$\nKlik op Installeren om te beginnen."
!define MUI_FINISHPAGE_TITLE "${TITLE} is geïnstalleerd"
!define MUI_FINISHPAGE_TEXT "U vindt het programma en de handleiding in het menu Start. In elk venster opent F1 de handleiding."
!define MUI_FINISHPAGE_RUN "$INSTDIR\${EXE}"
!define MUI_FINISHPAGE_RUN_TEXT "${TITLE} nu starten"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "${TITLE} wordt van deze computer verwijderd. De instellingen van Tarvik blijven staan."

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Dutch"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_DUTCH} "ProductName" "${TITLE}"
VIAddVersionKey /LANG=${LANG_DUTCH} "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_DUTCH} "FileDescription" "Installatie van ${TITLE}"
VIAddVersionKey /LANG=${LANG_DUTCH} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_DUTCH} "CompanyName" "${VENDOR}"
VIAddVersionKey /LANG=${LANG_DUTCH} "LegalCopyright" "${COPYRIGHT}"
VIAddVersionKey /LANG=${LANG_DUTCH} "InternalName" "drukkeuring-setup"
VIAddVersionKey /LANG=${LANG_DUTCH} "OriginalFilename" "drukkeuring-setup-${VERSION}.exe"

; Windows lets nobody write to a program that runs, so that a file that opens for writing is free. Who runs the setup
; silently is not asked: it ends with 2, and nothing has changed.
!macro WAIT_UNTIL_CLOSED prefix
Function ${prefix}WaitUntilClosed
  ${While} ${FileExists} "$INSTDIR\${EXE}"
    ClearErrors
    FileOpen $0 "$INSTDIR\${EXE}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${TITLE} is nog geopend.$\r$\n$\r$\nSluit het programma en probeer het \
opnieuw." /SD IDCANCEL IDRETRY again
    Abort "${TITLE} is nog geopend; er is niets veranderd."
    again:
  ${EndWhile}
FunctionEnd
!macroend
!insertmacro WAIT_UNTIL_CLOSED ""
!insertmacro WAIT_UNTIL_CLOSED "un."

Section
  Call WaitUntilClosed
  RMDir /r "$INSTDIR\handleiding"
  SetOutPath "$INSTDIR\handleiding"
  File /r "${HANDBOOK}/*"
  SetOutPath "$INSTDIR"
  !insertmacro INSTALL_PROGRAMS
  WriteUninstaller "$INSTDIR\${REMOVER}"
  CreateShortcut "${SHORTCUT}" "$INSTDIR\${EXE}" "" "" "" SW_SHOWNORMAL "" "Testpartij IBAN-acceptgiro's afdrukken"
  CreateShortcut "${HANDBOOK_SHORTCUT}" "$INSTDIR\handleiding\index.html" "" "" "" SW_SHOWNORMAL "" "Handleiding van ${TITLE}"

  SectionGetSize 0 $0
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "${TITLE}"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\${EXE},0"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "${VENDOR}"
  WriteRegStr HKCU "${ENTRY}" "URLInfoAbout" "${HOMEPAGE}"
  WriteRegStr HKCU "${ENTRY}" "Contact" "${ADDRESS}"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\${REMOVER}"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\${REMOVER}" /S'
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" $0
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

; Folders and the list go if they are empty: what else is kept there stays.
Section "Uninstall"
  Call un.WaitUntilClosed
  Delete "${SHORTCUT}"
  Delete "${HANDBOOK_SHORTCUT}"
  !insertmacro REMOVE_PROGRAMS
  RMDir /r "$INSTDIR\handleiding"
  Delete "$INSTDIR\printrap.log"
  Delete "$INSTDIR\${REMOVER}"
  SetOutPath "$TEMP"
  RMDir "$INSTDIR"
  RMDir "$LOCALAPPDATA\Programs"
  DeleteRegKey HKCU "${ENTRY}"
  DeleteRegKey /ifempty HKCU "${ENTRIES}"
SectionEnd
