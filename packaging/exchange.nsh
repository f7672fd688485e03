; The files of one installation are exchanged as a whole or not at all, also when the set-up is killed
; or the disk is full.
;
;   $INSTDIR\files.txt  what is installed, a path below $INSTDIR in each line
;   $INSTDIR\~new       where the new files are unpacked first, with their own files.txt
;   $INSTDIR\~old       where replaced files wait until everything is in its place
;
; Files are only renamed between the three, which needs no room. As long as ~new\files.txt is there
; the exchange is not complete and PutBack undoes it; moving that list to its place completes it.

!include TextFunc.nsh

; ${EachLine} FILE ... ${NextLine}: $1 is the line; $0 and $1 are used.
!define EachLine "!insertmacro EachLine"
!macro EachLine FILE
    ClearErrors
    FileOpen $0 "${FILE}" r
    ${IfNot} ${Errors}
        ${Do}
            ClearErrors
            FileRead $0 $1
            ${If} ${Errors}
                ${ExitDo}
            ${EndIf}
            ${TrimNewLines} $1 $1
!macroend
!define NextLine "!insertmacro NextLine"
!macro NextLine
        ${Loop}
        FileClose $0
    ${EndIf}
    ClearErrors
!macroend

; Asks until no file is in use; in silence the set-up ends, and nothing has changed.
!macro DefineWaitUntilUnused UN
Function ${UN}WaitUntilUnused
again:
    StrCpy $2 ""
    ${EachLine} "$INSTDIR\files.txt"
        ; The uninstaller that runs may be this very file.
        ${If} $1 != "uninstall.exe"
        ${AndIf} ${FileExists} "$INSTDIR\$1"
            SetFileAttributes "$INSTDIR\$1" NORMAL
            ClearErrors
            FileOpen $3 "$INSTDIR\$1" a
            ${If} ${Errors}
                StrCpy $2 $1
            ${Else}
                FileClose $3
            ${EndIf}
        ${EndIf}
    ${NextLine}
    ${If} $2 != ""
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDRETRY again
        SetErrorLevel ${EXIT_IN_USE}
        Quit
    ${EndIf}
FunctionEnd
!macroend
!insertmacro DefineWaitUntilUnused ""
!insertmacro DefineWaitUntilUnused "un."

; Ends the installation; .onInstFailed puts back what was there.
!macro FailOnErrors
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "$(NotWritten)" /SD IDOK
        Abort
    ${EndIf}
!macroend

; The list while it is written; an open file could not be removed.
Var list

!macro StageFile FILE
    ${GetParent} "$INSTDIR\~new\${FILE}" $1
    ClearErrors
    SetOutPath $1
    File "${PAYLOAD}\${FILE}"
    FileWrite $list "${FILE}$\r$\n"
    !insertmacro FailOnErrors
!macroend

Function CloseList
    ${If} $list != ""
        FileClose $list
        StrCpy $list ""
    ${EndIf}
FunctionEnd

Function Stage
    ClearErrors
    CreateDirectory "$INSTDIR\~new"
    FileOpen $list "$INSTDIR\~new\files.txt" w
    !insertmacro FailOnErrors
    !insertmacro FilesOfBothWidths StageFile
    ${If} ${IsNativeAMD64}
        !insertmacro FilesOf64Bits StageFile
    ${EndIf}
    ClearErrors
    WriteUninstaller "$INSTDIR\~new\uninstall.exe"
    FileWrite $list "uninstall.exe$\r$\n"
    Call CloseList
    !insertmacro FailOnErrors
FunctionEnd

; $1, with the folders that it needs, from one of the three places to another.
!macro Move FROM TO
    ${GetParent} "${TO}\$1" $2
    CreateDirectory $2
    ClearErrors
    Rename "${FROM}\$1" "${TO}\$1"
!macroend

Function SetAside
    ${If} ${FileExists} "$INSTDIR\$1"
        !insertmacro Move $INSTDIR $INSTDIR\~old
        !insertmacro FailOnErrors
    ${EndIf}
FunctionEnd

Function Exchange
    RMDir /r "$INSTDIR\~old"
    ; Files of the version before that this one does not have go, too.
    ${EachLine} "$INSTDIR\files.txt"
        Call SetAside
    ${NextLine}
    ${EachLine} "$INSTDIR\~new\files.txt"
        Call SetAside
        !insertmacro Move $INSTDIR\~new $INSTDIR
        !insertmacro FailOnErrors
    ${NextLine}
FunctionEnd

Function Commit
    StrCpy $1 "files.txt"
    Call SetAside
    !insertmacro Move $INSTDIR\~new $INSTDIR
    !insertmacro FailOnErrors
FunctionEnd

; Of the files of a list, those folders that hold nothing any more.
!macro RemoveEmptyFolders LIST
    ${EachLine} "${LIST}"
        ${Do}
            ${GetParent} "$1" $1
            ${If} $1 == ""
                ${ExitDo}
            ${EndIf}
            RMDir "$INSTDIR\$1"
        ${Loop}
    ${NextLine}
!macroend

Function RestoreLine
    ${If} ${FileExists} "$INSTDIR\~old\$1"
        !insertmacro Move $INSTDIR\~old $INSTDIR
    ${EndIf}
FunctionEnd

; Can be broken off and begun again at any place.
Function PutBack
    ${If} ${FileExists} "$INSTDIR\~new\files.txt"
        ${EachLine} "$INSTDIR\~new\files.txt"
            ${IfNot} ${FileExists} "$INSTDIR\~new\$1"
                !insertmacro Move $INSTDIR $INSTDIR\~new
            ${EndIf}
            Call RestoreLine
        ${NextLine}
        StrCpy $1 "files.txt"
        Call RestoreLine
        ${EachLine} "$INSTDIR\files.txt"
            Call RestoreLine
        ${NextLine}
        !insertmacro RemoveEmptyFolders "$INSTDIR\~new\files.txt"
    ${EndIf}
    Call DropReplaced
    RMDir "$INSTDIR"
FunctionEnd

Function DropReplaced
    ; The working folder cannot be removed.
    SetOutPath $TEMP
    ${If} ${FileExists} "$INSTDIR\~old\*.*"
        RMDir /r /REBOOTOK "$INSTDIR\~old"
    ${EndIf}
    RMDir /r "$INSTDIR\~new"
    ClearErrors
FunctionEnd

; What else lies in the folder is the user's and stays.
Function un.RemoveFiles
    SetOutPath $TEMP
    ${EachLine} "$INSTDIR\files.txt"
        Delete /REBOOTOK "$INSTDIR\$1"
    ${NextLine}
    !insertmacro RemoveEmptyFolders "$INSTDIR\files.txt"
    RMDir /r "$INSTDIR\~old"
    RMDir /r "$INSTDIR\~new"
    Delete "$INSTDIR\files.txt"
    RMDir "$INSTDIR"
    ${If} $MultiUser.InstallMode == "CurrentUser"
        ; A user's first program has brought the folder of them.
        RMDir "$LOCALAPPDATA\Programs"
    ${EndIf}
FunctionEnd
