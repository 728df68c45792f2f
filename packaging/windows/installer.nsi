; Installs the component, registers it and takes it away again. Made by installer.sh, which says where
; the files are, for what processor and what version they have. On one computer the libraries of 64
; bits and those of 32 bits have views of the registry and folders of their own.
!if ${PROCESSOR} == x64
    Target amd64-unicode
    !define BITS 64
!else
    Target x86-unicode
    !define BITS 32
!endif
Unicode true
!include "MUI2.nsh"

Name "Catalogador"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES${BITS}\Catalogador"
InstallDirRegKey HKLM "Software\Catalogador" "Folder"
RequestExecutionLevel admin
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Catalogador"
VIAddVersionKey FileDescription "Catalogador"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey LegalCopyright ""

!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "PortugueseBR"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Catalogador"

!macro Register SWITCH FILE
    ExecWait '"$SYSDIR\regsvr32.exe" /s ${SWITCH} "$INSTDIR\${FILE}"' $0
!macroend

Function .onInit
    SetRegView ${BITS}
FunctionEnd
Function un.onInit
    SetRegView ${BITS}
FunctionEnd

Section
    SetOutPath "$INSTDIR"
    File "${FILES}\vemCatalogador.dll"
    File "${FILES}\vemDatos.dll"
    File "${FILES}\LNG_QTX_001.dll"
    File "${FILES}\LNG_QTX_002.dll"
    File "${FILES}\LNG_QTX_003.dll"
    File "${FILES}\catalogador.exe"
    File "${FILES}\vemCatalogador.manifest"
    SetOutPath "$INSTDIR\languages"
    File "${FILES}\languages\*.po"
    SetOutPath "$INSTDIR\help"
    File /r "${FILES}\help\*"
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKLM "Software\Catalogador" "Folder" "$INSTDIR"
    WriteRegStr HKLM "${ENTRY}" "DisplayName" "Catalogador"
    WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
    !insertmacro Register "" "LNG_QTX_001.dll"
    !insertmacro Register "" "LNG_QTX_002.dll"
    !insertmacro Register "" "LNG_QTX_003.dll"
    !insertmacro Register "" "vemDatos.dll"
    !insertmacro Register "" "vemCatalogador.dll"
    IntCmp $0 0 registered
    SetErrors
    DetailPrint "vemCatalogador.dll could not be registered"
    SetErrorLevel 1
    registered:
SectionEnd

Section "Uninstall"
    !insertmacro Register "/u" "vemCatalogador.dll"
    !insertmacro Register "/u" "vemDatos.dll"
    !insertmacro Register "/u" "LNG_QTX_003.dll"
    !insertmacro Register "/u" "LNG_QTX_002.dll"
    !insertmacro Register "/u" "LNG_QTX_001.dll"
    Delete "$INSTDIR\vemCatalogador.dll"
    Delete "$INSTDIR\vemDatos.dll"
    Delete "$INSTDIR\LNG_QTX_001.dll"
    Delete "$INSTDIR\LNG_QTX_002.dll"
    Delete "$INSTDIR\LNG_QTX_003.dll"
    Delete "$INSTDIR\catalogador.exe"
    Delete "$INSTDIR\vemCatalogador.manifest"
    RMDir /r "$INSTDIR\languages"
    RMDir /r "$INSTDIR\help"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    DeleteRegKey HKLM "${ENTRY}"
    DeleteRegKey HKLM "Software\Catalogador"
SectionEnd
