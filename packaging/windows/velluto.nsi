; The setup of the Windows program, for the user who starts it and nobody else; /S does it without a word. packaging/windows/build.sh
; gives it the version, the folder with what to install, a list of the files there, and where the setup is to go.
Target amd64-unicode
Unicode true
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel user
Name "Velluto"
BrandingText "Velluto ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Velluto"
InstallDirRegKey HKCU "Software\Velluto" "Folder"

!include MUI2.nsh
!include WinVer.nsh
!include "${FILES}" ; InstallFiles and DeleteFiles

VIProductVersion "${NUMBERS}"
VIAddVersionKey /LANG=0 "ProductName" "Velluto"
VIAddVersionKey /LANG=0 "FileDescription" "Velluto"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "CompanyName" "Velluto developers"
VIAddVersionKey /LANG=0 "LegalCopyright" "Velluto developers"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\velluto.exe"
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English" ; where Windows speaks neither
!insertmacro MUI_LANGUAGE "Italian"

LangString TooOld ${LANG_ENGLISH} "Velluto needs Windows 10 or newer."
LangString TooOld ${LANG_ITALIAN} "Velluto richiede Windows 10 o successivo."
LangString Running ${LANG_ENGLISH} "Velluto is running. Close it, then try again."
LangString Running ${LANG_ITALIAN} "Velluto è in esecuzione. Chiuderlo e riprovare."
LangString NotOff ${LANG_ENGLISH} "The older version in $0 could not be taken off. Delete that folder, then try again."
LangString NotOff ${LANG_ITALIAN} "Impossibile rimuovere la versione precedente in $0. Eliminare quella cartella e riprovare."
LangString Programs ${LANG_ENGLISH} "KORG PA80 Programs"
LangString Programs ${LANG_ITALIAN} "Program KORG PA80"
LangString Styles ${LANG_ENGLISH} "KORG PA80 Styles"
LangString Styles ${LANG_ITALIAN} "Style KORG PA80"
LangString Performances ${LANG_ENGLISH} "KORG PA80 Performances"
LangString Performances ${LANG_ITALIAN} "Performance KORG PA80"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velluto"
!define CLASSES "Software\Classes"

; A program that runs cannot be written over.
!macro WaitForEnd FOLDER
    ${DoWhile} ${FileExists} "${FOLDER}\velluto.exe"
        ClearErrors
        FileOpen $0 "${FOLDER}\velluto.exe" a
        ${IfNot} ${Errors}
            FileClose $0
            ${ExitDo}
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(Running)" /SD IDCANCEL IDCANCEL`
            SetErrorLevel 3
            Quit
        ${EndIf}
    ${Loop}
!macroend

; What an older version has left in a folder takes itself off, file by file.
!macro TakeOff FOLDER
    !insertmacro WaitForEnd "${FOLDER}"
    ${If} ${FileExists} "${FOLDER}\uninstall.exe"
        InitPluginsDir
        CopyFiles /SILENT "${FOLDER}\uninstall.exe" "$PLUGINSDIR\older.exe"
        StrCpy $0 -1 ; where it cannot even be started
        ExecWait '"$PLUGINSDIR\older.exe" /S _?=${FOLDER}' $0
        ${If} $0 <> 0
            StrCpy $0 "${FOLDER}"
            MessageBox MB_OK|MB_ICONSTOP "$(NotOff)" /SD IDOK
            SetErrorLevel 4
            Quit
        ${EndIf}
    ${EndIf}
!macroend

; What Explorer opens with Velluto. Who has chosen another program for such files keeps it, and finds Velluto beside it.
!macro AddType EXTENSION CLASS NAME
    WriteRegStr HKCU "${CLASSES}\${CLASS}" "" "${NAME}"
    WriteRegStr HKCU "${CLASSES}\${CLASS}\DefaultIcon" "" "$INSTDIR\velluto.exe,0"
    WriteRegStr HKCU "${CLASSES}\${CLASS}\shell\open\command" "" '"$INSTDIR\velluto.exe" "%1"'
    WriteRegStr HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids" "${CLASS}" ""
    ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
    ${If} $0 == ""
        WriteRegStr HKCU "${CLASSES}\${EXTENSION}" "" "${CLASS}"
    ${EndIf}
!macroend

!macro RemoveType EXTENSION CLASS
    ReadRegStr $0 HKCU "${CLASSES}\${EXTENSION}" ""
    ${If} $0 == "${CLASS}"
        DeleteRegValue HKCU "${CLASSES}\${EXTENSION}" ""
    ${EndIf}
    DeleteRegValue HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids" "${CLASS}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}\OpenWithProgids"
    DeleteRegKey /ifempty HKCU "${CLASSES}\${EXTENSION}"
    DeleteRegKey HKCU "${CLASSES}\${CLASS}"
!macroend

!macro TellExplorer
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
    ${IfNot} ${AtLeastWin10}
        MessageBox MB_OK|MB_ICONSTOP "$(TooOld)" /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
FunctionEnd

Section
    ; One in another folder would take types, link and keys along when it goes later.
    ReadRegStr $1 HKCU "Software\Velluto" "Folder"
    ${If} $1 != ""
        !insertmacro TakeOff "$1"
    ${EndIf}
    !insertmacro TakeOff "$INSTDIR"
    !insertmacro InstallFiles
    SetOutPath "$INSTDIR"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortcut "$SMPROGRAMS\Velluto.lnk" "$INSTDIR\velluto.exe"
    !insertmacro AddType ".pcg" "Velluto.Program" "$(Programs)"
    !insertmacro AddType ".sty" "Velluto.Style" "$(Styles)"
    !insertmacro AddType ".prf" "Velluto.Performance" "$(Performances)"
    WriteRegStr HKCU "Software\Velluto" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Velluto"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Velluto developers"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\velluto.exe,0"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" ${SIZE}
    !insertmacro TellExplorer
SectionEnd

; The user's own files are elsewhere, and stay.
Section Uninstall
    !insertmacro WaitForEnd "$INSTDIR"
    !insertmacro DeleteFiles
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    RMDir "$LOCALAPPDATA\Programs" ; where it is empty
    Delete "$SMPROGRAMS\Velluto.lnk"
    !insertmacro RemoveType ".pcg" "Velluto.Program"
    !insertmacro RemoveType ".sty" "Velluto.Style"
    !insertmacro RemoveType ".prf" "Velluto.Performance"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Velluto"
    !insertmacro TellExplorer
SectionEnd
