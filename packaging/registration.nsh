; The files of components are registered for all or for one user, in each width that the system runs.
; A copy that is registered from another folder is remembered and registered again when this one is
; removed.

!define CONTROL_CLASS "{29DE1175-A4EF-4D13-9534-1C19C40DDBC5}"
!define HOST_CLASS "{336EFE7F-89AB-4286-9169-B1B6111066F7}"

; The registrar of each width, as a program of this one finds it.
!if "${TARGET}" == "x86-unicode"
    !define REGISTRAR_64 "$WINDIR\Sysnative\regsvr32.exe"
    !define REGISTRAR_32 "$SYSDIR\regsvr32.exe"
!else
    !define REGISTRAR_64 "$SYSDIR\regsvr32.exe"
    !define REGISTRAR_32 "$WINDIR\SysWOW64\regsvr32.exe"
!endif

Var previousControl64
Var previousHost64
Var previousControl32
Var previousHost32
Var registers

; DO is called for each file that this machine can use, with WIDTH, CLASS, FILE and the variable of the
; copy before.
!macro ForEachComponent DO
    ${If} ${IsNativeAMD64}
        SetRegView 64
        !insertmacro ${DO} 64 ${HOST_CLASS} "x64\zv_Host.dll" $previousHost64
        !insertmacro ${DO} 64 ${CONTROL_CLASS} "x64\zv_Task.ocx" $previousControl64
    ${EndIf}
    ${If} ${FileExists} "${REGISTRAR_32}"
        SetRegView 32
        !insertmacro ${DO} 32 ${HOST_CLASS} "x86\zv_Host.dll" $previousHost32
        !insertmacro ${DO} 32 ${CONTROL_CLASS} "x86\zv_Task.ocx" $previousControl32
    ${EndIf}
    !insertmacro UseNativeRegistry
!macroend

; $0: the file that is registered for the class; $1: whether it lies in our folder.
!macro ReadRegistered CLASS
    ReadRegStr $0 SHCTX "Software\Classes\CLSID\${CLASS}\InprocServer32" ""
    StrLen $1 "$INSTDIR\"
    StrCpy $1 $0 $1
    ${If} $1 == "$INSTDIR\"
        StrCpy $1 1
    ${Else}
        StrCpy $1 0
    ${EndIf}
!macroend

; $0 becomes the registrar's exit code; without an answer it is empty.
!macro Registrar WIDTH OPTIONS FILE
    StrCpy $0 ""
    ClearErrors
    ${If} $MultiUser.InstallMode == "CurrentUser"
        ExecWait '"${REGISTRAR_${WIDTH}}" /s ${OPTIONS} /n /i:user "${FILE}"' $0
    ${Else}
        ExecWait '"${REGISTRAR_${WIDTH}}" /s ${OPTIONS} /n /i:machine "${FILE}"' $0
    ${EndIf}
!macroend

!macro RegisterComponent WIDTH CLASS FILE PREVIOUS
    !insertmacro ReadRegistered ${CLASS}
    ${If} $0 != ""
    ${AndIf} $1 = 0
        StrCpy ${PREVIOUS} $0
    ${EndIf}
    !insertmacro Registrar ${WIDTH} "" "$INSTDIR\${FILE}"
    ${If} $0 != 0
        StrCpy $2 "${FILE}"
    ${EndIf}
!macroend

; Ends the installation when a file cannot be registered.
Function Register
    StrCpy $registers 1
    StrCpy $2 ""
    !insertmacro ForEachComponent RegisterComponent
    ${If} $2 != ""
        MessageBox MB_OK|MB_ICONSTOP "$(NotRegistered)" /SD IDOK
        Abort
    ${EndIf}
FunctionEnd

!macro RememberPrevious WIDTH CLASS FILE PREVIOUS
    !insertmacro UseNativeRegistry
    ${If} ${PREVIOUS} != ""
        WriteRegStr SHCTX "${UNINSTALL_KEY}" "Previous ${FILE}" ${PREVIOUS}
    ${EndIf}
!macroend

!macro UnregisterComponent WIDTH CLASS FILE PREVIOUS
    !insertmacro ReadRegistered ${CLASS}
    ${If} $1 = 1
        !insertmacro Registrar ${WIDTH} "/u" "$INSTDIR\${FILE}"
        ${If} ${PREVIOUS} != ""
        ${AndIf} ${FileExists} "${PREVIOUS}"
            !insertmacro Registrar ${WIDTH} "" ${PREVIOUS}
        ${EndIf}
    ${EndIf}
!macroend

!macro RecallPrevious WIDTH CLASS FILE PREVIOUS
    !insertmacro UseNativeRegistry
    ReadRegStr ${PREVIOUS} SHCTX "${UNINSTALL_KEY}" "Previous ${FILE}"
!macroend

Function Unregister
    !insertmacro ForEachComponent UnregisterComponent
FunctionEnd

Function un.Unregister
    !insertmacro ForEachComponent RecallPrevious
    !insertmacro ForEachComponent UnregisterComponent
FunctionEnd
