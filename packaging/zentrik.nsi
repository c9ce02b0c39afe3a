; The per-user installer for 64-bit Windows. ./package defines:
;     VERSION  the program's version
;     OUTPUT   the installer to make
;     ICON     the program's icon
;     INSTALL  a script that writes the files below $INSTDIR
;     REMOVE   a script that removes exactly these, and their folders where they are empty then
;
; Silent: zentrik-VERSION-setup.exe /S [/WORK=C:\folder] [/D=C:\program folder]
; Exit code 2: the work folder was refused; 3: the sample or the runtime could not be written.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include StrFunc.nsh
${StrStr}

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zentrik"

Name "Zentrik ${VERSION}"
OutFile "${OUTPUT}"
BrandingText "Zentrik ${VERSION}"
InstallDir "$LOCALAPPDATA\Zentrik"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "2.0.0.0"
VIAddVersionKey "ProductName" "Zentrik"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Zentrik ${VERSION} setup"
VIAddVersionKey "LegalCopyright" "Copyright (c) 1999 the Zentrik project"

Var Work  ; the work folder: what Zentrik starts in
Var Wrong ; what is wrong with it, or empty

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING

!insertmacro MUI_PAGE_DIRECTORY

!define MUI_PAGE_HEADER_TEXT "Choose the work folder"
!define MUI_PAGE_HEADER_SUBTEXT "Zentrik starts in it and keeps its settings and projects there."
!define MUI_DIRECTORYPAGE_TEXT_TOP "The sample project is written to this folder, unless it holds a \
work folder already. No '.' may stand in its path, because Zentrik derives file names by cutting a path at \
its first '.'. A folder in your profile will not do when your user name has one."
!define MUI_DIRECTORYPAGE_TEXT_DESTINATION "Work folder"
!define MUI_DIRECTORYPAGE_VARIABLE $Work
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE LeaveWorkPage
!insertmacro MUI_PAGE_DIRECTORY

!insertmacro MUI_PAGE_INSTFILES

!define MUI_FINISHPAGE_TEXT "To open the sample choose MORV Project > Open MORV and \
$Work\boiler\boiler.mrv.$\r$\n$\r$\nBuilding the program of a project needs the g++ and windres of MinGW-w64, in the PATH or as \
Compiler Path in Compile > Tools."
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Zentrik"
!define MUI_FINISHPAGE_RUN_FUNCTION StartZentrik
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "The program is removed from this folder. Your work folder, with the \
sample and your projects, stays where it is."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"

Function CheckWorkFolder
    StrCpy $Wrong ""
    ${StrStr} $0 "$Work" "."
    StrLen $1 "$INSTDIR\"
    StrCpy $2 "$Work\" $1
    StrCpy $3 "$Work" 1 1
    ${If} $3 != ":"
    ${AndIf} $3 != "\"
        StrCpy $Wrong "The work folder needs its whole path: $Work"
    ${ElseIf} $0 != ""
        StrCpy $Wrong "A '.' stands in the path of the work folder: $Work"
    ${ElseIf} $2 == "$INSTDIR\"
        ; The program folder has a runtime of its own, which goes with the program.
        StrCpy $Wrong "The work folder cannot be in the program folder: $Work"
    ${EndIf}
FunctionEnd

Function LeaveWorkPage
    Call CheckWorkFolder
    ${If} $Wrong != ""
        MessageBox MB_OK|MB_ICONEXCLAMATION "$Wrong"
        Abort
    ${EndIf}
FunctionEnd

Function StartZentrik
    SetOutPath "$Work"
    Exec '"$INSTDIR\zentrik.exe"'
FunctionEnd

Function .onInit
    ReadRegStr $Work HKCU "${UNINSTALL_KEY}" "WorkFolder"
    ${If} $Work == ""
        ; Not in the profile: the user's name may have a '.'.
        StrCpy $0 $WINDIR 2
        StrCpy $Work "$0\Zentrik"
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/WORK=" $1
    ${IfNot} ${Errors}
        StrCpy $Work $1
    ${EndIf}
    ${If} ${Silent}
        Call CheckWorkFolder
        ${If} $Wrong != ""
            SetErrorLevel 2
            Quit
        ${EndIf}
    ${EndIf}
FunctionEnd

Section
    !include "${INSTALL}"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Zentrik ${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\zentrik.exe"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "The Zentrik project"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "WorkFolder" "$Work"
    WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
    SectionGetSize 0 $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" $0

    ; The versions before had one shortcut, outside of a folder.
    Delete "$SMPROGRAMS\Zentrik.lnk"
    ; A shortcut starts in the folder that is current when it is made.
    SetOutPath "$Work"
    CreateDirectory "$SMPROGRAMS\Zentrik"
    CreateShortcut "$SMPROGRAMS\Zentrik\Zentrik.lnk" "$INSTDIR\zentrik.exe"
    CreateShortcut "$SMPROGRAMS\Zentrik\Zentrik guide.lnk" "$INSTDIR\help\index.html"

    ; A work folder that is there keeps its projects and gets the runtime of this version.
    ; A backslash before the closing quote would take it into the argument.
    StrCpy $0 "$Work" 1 -1
    ${If} $0 == "\"
        StrCpy $1 "$Work" -1
    ${Else}
        StrCpy $1 "$Work"
    ${EndIf}
    nsExec::ExecToLog '"$INSTDIR\zentrikc.exe" import "$INSTDIR\examples\boiler" "$1" \
        --morv "$INSTDIR\morv" --update'
    Pop $0
    ${If} $0 != 0
        SetErrorLevel 3
        MessageBox MB_OK|MB_ICONEXCLAMATION "The sample or the runtime could not be written to $Work. \
            Zentrik itself is installed." /SD IDOK
    ${EndIf}
SectionEnd

Section "Uninstall"
    ; A running program cannot be deleted; then everything stays.
    ${Do}
        ClearErrors
        Delete "$INSTDIR\zentrik.exe"
        ${IfNot} ${Errors}
            ${ExitDo}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Zentrik is running. Close it first." \
            /SD IDCANCEL IDRETRY +2
        Abort
    ${Loop}

    ReadRegStr $Work HKCU "${UNINSTALL_KEY}" "WorkFolder"
    DetailPrint "The work folder stays: $Work"
    Delete "$SMPROGRAMS\Zentrik\Zentrik.lnk"
    Delete "$SMPROGRAMS\Zentrik\Zentrik guide.lnk"
    RMDir "$SMPROGRAMS\Zentrik"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    Delete "$INSTDIR\uninstall.exe"
    SetOutPath "$TEMP" ; the current folder cannot be removed
    !include "${REMOVE}"
SectionEnd
