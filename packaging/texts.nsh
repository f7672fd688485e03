; What the set-up says in each of its languages; the rest comes with the languages themselves.

!macro Text NAME ENGLISH SIMPLIFIED TRADITIONAL
    LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
    LangString ${NAME} ${LANG_SIMPCHINESE} "${SIMPLIFIED}"
    LangString ${NAME} ${LANG_TRADCHINESE} "${TRADITIONAL}"
!macroend

!insertmacro Text Finished \
    "The control is registered and can be used by every program.$\r$\n$\r$\nExamples and a guide for administrators are in the start menu under ${NAME}." \
    "控件已注册，所有程序均可使用。$\r$\n$\r$\n示例和管理员指南在开始菜单的 ${NAME} 下。" \
    "控制項已註冊，所有程式均可使用。$\r$\n$\r$\n範例和管理員指南在開始功能表的 ${NAME} 下。"
!insertmacro Text WhatStays \
    "The control, its examples and its registration will be removed from this computer. Databases and each user's settings stay." \
    "将从本机移除控件、示例及其注册信息。数据库和各用户的设置会保留。" \
    "將從本機移除控制項、範例及其註冊資訊。資料庫和各使用者的設定會保留。"
!insertmacro Text WhatStayed \
    "${NAME} is removed. Databases stay where they are, and so do each user's settings (in the registry below HKEY_CURRENT_USER\Software\VB and VBA Program Settings)." \
    "${NAME} 已移除。数据库保留在原处，各用户的设置也保留（注册表 HKEY_CURRENT_USER\Software\VB and VBA Program Settings 下）。" \
    "${NAME} 已移除。資料庫保留在原處，各使用者的設定也保留（登錄 HKEY_CURRENT_USER\Software\VB and VBA Program Settings 下）。"
; $2 is the file.
!insertmacro Text InUse \
    "$2 is in use. Close the programs that use the control and try again. Nothing has been changed so far." \
    "$2 正在使用中。请关闭使用该控件的程序后重试。目前尚未作任何更改。" \
    "$2 正在使用中。請關閉使用該控制項的程式後重試。目前尚未作任何變更。"
!insertmacro Text NotWritten \
    "A file cannot be written to $INSTDIR: the disk may be full, or rights are missing. Everything is put back as it was." \
    "无法将文件写入 $INSTDIR：磁盘可能已满，或权限不足。一切将恢复原状。" \
    "無法將檔案寫入 $INSTDIR：磁碟可能已滿，或權限不足。一切將恢復原狀。"
; $2 is the file.
!insertmacro Text NotRegistered \
    "$2 cannot be registered. Everything is put back as it was." \
    "无法注册 $2。一切将恢复原状。" \
    "無法註冊 $2。一切將恢復原狀。"
; $0 is the version.
!insertmacro Text NewerIsThere \
    "Version $0, which is newer, is installed. Replace it by version ${VERSION}?" \
    "已安装较新的版本 $0。要用版本 ${VERSION} 替换它吗？" \
    "已安裝較新的版本 $0。要用版本 ${VERSION} 取代它嗎？"
!insertmacro Text RightsMissing \
    "Only an administrator can install for all users. Choose an installation for yourself, or start the set-up as an administrator." \
    "只有管理员才能为所有用户安装。请选择只为自己安装，或以管理员身份运行安装程序。" \
    "只有系統管理員才能為所有使用者安裝。請選擇只為自己安裝，或以系統管理員身分執行安裝程式。"
!insertmacro Text SetUpRuns \
    "Another set-up of ${NAME} is at work." \
    "另一个 ${NAME} 安装程序正在运行。" \
    "另一個 ${NAME} 安裝程式正在執行。"
; $2 is the file.
!insertmacro Text FolderTaken \
    "$INSTDIR holds a file $2 that is not ours. Choose another folder." \
    "$INSTDIR 中有不属于本程序的文件 $2。请选择其他文件夹。" \
    "$INSTDIR 中有不屬於本程式的檔案 $2。請選擇其他資料夾。"

!insertmacro Text LinkDemo "Demonstration" "演示" "示範"
!insertmacro Text LinkExamples "Examples" "示例" "範例"
!insertmacro Text LinkDeploying "Guide for administrators" "管理员指南" "系統管理員指南"
!insertmacro Text LinkUninstall "Uninstall ${NAME}" "卸载 ${NAME}" "解除安裝 ${NAME}"
