; The set-up. Made by packaging/make, which defines TARGET, VERSION, PAYLOAD, KILOBYTES, LIST and OUT,
; and SIGN where the files are signed.
;
;   zvTask-VERSION-setup.exe [/S] [/AllUsers | /CurrentUser] [/D=FOLDER]
;
; Exit codes: 0 done, 1 the user left, 2 failed and all is as before, 3 the control is in use,
; 4 a newer version is installed, 5 the rights are missing, 6 another set-up is at work.

; Branches of the library's conditions that lead nowhere.
!pragma warning disable 6012
Target ${TARGET}
!define NAME "zvTask"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

!define EXIT_FAILED 2
!define EXIT_IN_USE 3
!define EXIT_NEWER 4
!define EXIT_RIGHTS 5
!define EXIT_BUSY 6

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR "${NAME}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_FUNCTION KeepGivenFolder
!define MULTIUSER_INIT_TEXT_ALLUSERSNOTPOSSIBLE "$(RightsMissing)"

!include MUI2.nsh
!include MultiUser.nsh
!include FileFunc.nsh
!include LogicLib.nsh
!include WordFunc.nsh
!include x64.nsh
!include ${LIST}

Name "${NAME} ${VERSION}"
OutFile "${OUT}"
BrandingText "${NAME} ${VERSION}"
; Not solid: that would unpack everything to the temporary folder first.
SetCompressor lzma
!ifdef UNCOMPRESSED
    SetCompress off
!endif
ManifestDPIAware true
ManifestSupportedOS all
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=0 "ProductName" "${NAME}"
VIAddVersionKey /LANG=0 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "FileDescription" "${NAME} set-up"
VIAddVersionKey /LANG=0 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=0 "LegalCopyright" ""
!ifdef SIGN
    !finalize '${SIGN} "%1"' = 0
    !uninstfinalize '${SIGN} "%1"' = 0
!endif

!define MUI_ICON "src\com\zv_task.ico"
!define MUI_UNICON "src\com\zv_task.ico"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_TEXT "$(Finished)"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "$(WhatStays)"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE RefuseStrangeFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

; The system's language decides; the first serves all others.
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE SimpChinese
!insertmacro MUI_LANGUAGE TradChinese

Var givenFolder

; One view of the registry, whichever width this program has.
!macro UseNativeRegistry
    ${If} ${RunningX64}
        SetRegView 64
    ${EndIf}
!macroend

!include packaging\texts.nsh
!include packaging\registration.nsh
!include packaging\exchange.nsh

; Ends the set-up with a text and an exit code; in silence without the text.
!macro Refuse CODE TEXT
    SetErrorLevel ${CODE}
    MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
    Quit
!macroend

!macro OnlyOne
    System::Call 'kernel32::CreateMutexW(p 0, i 0, w "${NAME}-set-up") p .r1 ?e'
    Pop $0
    ${If} $0 = 183  ; it is there already
        !insertmacro Refuse ${EXIT_BUSY} $(SetUpRuns)
    ${EndIf}
!macroend

; In silence nobody is there to read MultiUser's own message.
!macro RefuseWithoutRights
    UserInfo::GetAccountType
    Pop $0
    ${GetParameters} $1
    ClearErrors
    ${GetOptions} $1 "/AllUsers" $2
    ${IfNot} ${Errors}
    ${AndIf} $0 != "Admin"
        !insertmacro Refuse ${EXIT_RIGHTS} $(RightsMissing)
    ${EndIf}
    ClearErrors
!macroend

Function .onInit
    !insertmacro UseNativeRegistry
    !insertmacro OnlyOne
    !insertmacro RefuseWithoutRights
    StrCpy $givenFolder $INSTDIR
    !insertmacro MULTIUSER_INIT
    Call RefuseOlderThanInstalled
FunctionEnd

; /D= stands above the folder that goes with the choice of users.
Function KeepGivenFolder
    ${If} $givenFolder != ""
        StrCpy $INSTDIR $givenFolder
    ${EndIf}
FunctionEnd

Function RefuseOlderThanInstalled
    ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "DisplayVersion"
    ${If} $0 != ""
        ${VersionCompare} "${VERSION}" "$0" $1
        ${If} $1 = 2
            MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(NewerIsThere)" /SD IDNO IDYES goOn
            SetErrorLevel ${EXIT_NEWER}
            Quit
        goOn:
        ${EndIf}
    ${EndIf}
FunctionEnd

!macro FindStranger FILE
    ${If} ${FileExists} "$INSTDIR\${FILE}"
        StrCpy $2 "${FILE}"
    ${EndIf}
!macroend

; A file of somebody else that has the name of one of ours would be lost. What else lies in the folder
; stays, a database after removing for example.
Function RefuseStrangeFolder
    ${IfNot} ${FileExists} "$INSTDIR\files.txt"
    ${AndIfNot} ${FileExists} "$INSTDIR\~new\*.*"
        StrCpy $2 ""
        !insertmacro FilesOfBothWidths FindStranger
        !insertmacro FilesOf64Bits FindStranger
        ${If} $2 != ""
            MessageBox MB_OK|MB_ICONEXCLAMATION "$(FolderTaken)" /SD IDOK
            Abort
        ${EndIf}
    ${EndIf}
FunctionEnd

Section
    ; What is unpacked elsewhere than in a section is not counted by itself.
    AddSize ${KILOBYTES}
    ; In silence no page has asked.
    Call RefuseStrangeFolder
    ; What one that was killed has left is put back before anything else.
    Call PutBack
    Call EndAlerter
    Call WaitUntilUnused
    Call Stage
    Call Exchange
    Call Register
    Call Commit
    Call DropReplaced
    Call WriteStartMenu
    Call WriteProgramEntry
SectionEnd

; The alerter keeps its files in use as long as its user is logged in. It begins again with the next
; log-in: a set-up that an administrator started must not leave a program of his running.
!macro DefineEndAlerter UN
Function ${UN}EndAlerter
    ; Where none runs no program is started that would keep its own file in use if the set-up were
    ; killed meanwhile. The name is that of the alerter's window.
    FindWindow $0 "zvAlertWindow"
    ${If} $0 <> 0
        ${If} ${FileExists} "$INSTDIR\x64\zvAlert.exe"
            ExecWait '"$INSTDIR\x64\zvAlert.exe" --exit'
        ${EndIf}
        ${If} ${FileExists} "$INSTDIR\x86\zvAlert.exe"
            ExecWait '"$INSTDIR\x86\zvAlert.exe" --exit'
        ${EndIf}
    ${EndIf}
    ClearErrors
FunctionEnd
!macroend
!insertmacro DefineEndAlerter ""
!insertmacro DefineEndAlerter "un."

Function .onInstFailed
    Call CloseList
    ${If} $registers = 1
        Call Unregister
    ${EndIf}
    Call PutBack
    ${If} $registers = 1
    ${AndIf} ${FileExists} "$INSTDIR\files.txt"
        !insertmacro ForEachComponent RegisterComponent
    ${EndIf}
    SetErrorLevel ${EXIT_FAILED}
FunctionEnd

Function WriteStartMenu
    ; Before the links of another language are made anew.
    RMDir /r "$SMPROGRAMS\${NAME}"
    CreateDirectory "$SMPROGRAMS\${NAME}"
    ${If} ${FileExists} "$INSTDIR\x64\zvDemo.exe"
        StrCpy $0 "$INSTDIR\x64"
    ${Else}
        StrCpy $0 "$INSTDIR\x86"
    ${EndIf}
    SetOutPath "$0"
    CreateShortcut "$SMPROGRAMS\${NAME}\$(LinkDemo).lnk" "$0\zvDemo.exe"
    ; Whether it stays when it is started is each user's own choice.
    CreateShortcut "$SMSTARTUP\${NAME}.lnk" "$0\zvAlert.exe"
    SetOutPath "$INSTDIR"
    CreateShortcut "$SMPROGRAMS\${NAME}\$(LinkExamples).lnk" "$INSTDIR\examples"
    CreateShortcut "$SMPROGRAMS\${NAME}\$(LinkDeploying).lnk" "$INSTDIR\deploying.txt"
    CreateShortcut "$SMPROGRAMS\${NAME}\$(LinkUninstall).lnk" "$INSTDIR\uninstall.exe" "/$MultiUser.InstallMode"
FunctionEnd

; Adds the bytes of an installed file to $0.
!macro AddFileSize FILE
    StrCpy $2 0
    FileOpen $1 "$INSTDIR\${FILE}" r
    FileSeek $1 0 END $2
    FileClose $1
    IntOp $0 $0 + $2
!macroend

Function WriteProgramEntry
    ; What the user keeps in the folder is none of the program's.
    StrCpy $0 0
    !insertmacro FilesOfBothWidths AddFileSize
    ${If} ${IsNativeAMD64}
        !insertmacro FilesOf64Bits AddFileSize
    ${EndIf}
    !insertmacro AddFileSize "uninstall.exe"
    IntOp $0 $0 / 1024
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\x86\zv_Task.ocx,0"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    !insertmacro ForEachComponent RememberPrevious
FunctionEnd

Function un.onInit
    !insertmacro UseNativeRegistry
    !insertmacro OnlyOne
    !insertmacro RefuseWithoutRights
    !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section Uninstall
    Call un.EndAlerter
    Call un.WaitUntilUnused
    Call un.Unregister
    Call un.RemoveFiles
    RMDir /r "$SMPROGRAMS\${NAME}"
    Delete "$SMSTARTUP\${NAME}.lnk"
    DeleteRegKey SHCTX "${UNINSTALL_KEY}"
    ${If} $MultiUser.InstallMode == "CurrentUser"
        ; A user's first entry has brought the list itself.
        DeleteRegKey /ifempty SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall"
    ${EndIf}
    MessageBox MB_OK|MB_ICONINFORMATION "$(WhatStayed)" /SD IDOK
SectionEnd
