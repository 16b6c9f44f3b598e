; The installer for Windows: for one user, without an administrator. Made by tools/package, which tells
; VERSION, NUMBERS (four, for the file itself), PROGRAMS (the folder with what is installed) and OUTPUT.
Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
Name "Inkwright"
OutFile "${OUTPUT}"
RequestExecutionLevel user
InstallDir "$LOCALAPPDATA\Programs\Inkwright"
InstallDirRegKey HKCU "Software\Larkspur Works\Inkwright" "InstallFolder"
ManifestDPIAware true
Icon "${PROGRAMS}\inkwright.ico"
UninstallIcon "${PROGRAMS}\inkwright.ico"
VIProductVersion "${NUMBERS}"
VIAddVersionKey "ProductName" "Inkwright"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Inkwright installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Larkspur Works"

!define CLASS "Inkwright.Note"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Inkwright"

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

; The resident program holds its file. The new one starts it again as soon as there is an alarm.
!macro StopAlarms
    IfFileExists "$INSTDIR\inkalarms.exe" 0 +2
    ExecWait '"$INSTDIR\inkalarms.exe" /stop'
!macroend

; A program that runs can be neither replaced nor erased; what it has open is for its user to close.
!macro WantClosed which
    check${which}:
    IfFileExists "$INSTDIR\inkwright.exe" 0 closed${which}
    ClearErrors
    FileOpen $1 "$INSTDIR\inkwright.exe" a
    IfErrors 0 release${which}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Inkwright is open. Close its windows, then retry." \
        /SD IDCANCEL IDRETRY check${which}
    SetErrorLevel 1
    Quit
    release${which}:
    FileClose $1
    closed${which}:
!macroend

; Explorer reads what opens a file only when it is told.
!macro TellShell
    System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Section
    !insertmacro WantClosed Install
    ReadRegStr $0 HKCU "Software\Microsoft\Windows\CurrentVersion\Run" "InkwrightAlarms"
    !insertmacro StopAlarms
    SetOutPath "$INSTDIR"
    File /r "${PROGRAMS}\*.*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    CreateShortCut "$SMPROGRAMS\Inkwright.lnk" "$INSTDIR\inkwright.exe"

    WriteRegStr HKCU "Software\Classes\.ikw" "" "${CLASS}"
    WriteRegStr HKCU "Software\Classes\.ikw" "Content Type" "application/x-inkwright-note"
    WriteRegStr HKCU "Software\Classes\${CLASS}" "" "Inkwright Note"
    WriteRegStr HKCU "Software\Classes\${CLASS}\DefaultIcon" "" "$INSTDIR\inkwright.exe,0"
    WriteRegStr HKCU "Software\Classes\${CLASS}\shell\open\command" "" '"$INSTDIR\inkwright.exe" "%1"'

    WriteRegStr HKCU "Software\Larkspur Works\Inkwright" "InstallFolder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Inkwright"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\inkwright.exe,0"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Larkspur Works"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
    !insertmacro TellShell

    ; Who had alarms before has them after.
    StrCmp $0 "" +2
    Exec '"$INSTDIR\inkalarms.exe"'
SectionEnd

; Notes, settings and alarms stay where they are: they are the user's.
Section "Uninstall"
    !insertmacro WantClosed Uninstall
    !insertmacro StopAlarms
    Delete "$SMPROGRAMS\Inkwright.lnk"
    ReadRegStr $0 HKCU "Software\Classes\.ikw" ""
    StrCmp $0 "${CLASS}" 0 +2
    DeleteRegKey HKCU "Software\Classes\.ikw"
    DeleteRegKey HKCU "Software\Classes\${CLASS}"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegValue HKCU "Software\Larkspur Works\Inkwright" "InstallFolder"
    RMDir /r "$INSTDIR\guide"
    Delete "$INSTDIR\*.exe"
    Delete "$INSTDIR\inkwright.ico"
    Delete "$INSTDIR\README.txt"
    RMDir "$INSTDIR"
    !insertmacro TellShell
SectionEnd
