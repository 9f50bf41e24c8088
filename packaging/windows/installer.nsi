; The installer for Windows. packaging/windows/installer.sh defines what stands in ${...} and lists the files.

Unicode true
SetCompressor /SOLID lzma

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinVer.nsh
!include "${LISTS}/images.nsh"

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Mevo"
!define DATA "Quend Research\Quend Mevo\5.07"
!define SETTINGS "$INSTDIR\product.ini"
!define NOT_DONE 2 ; exit codes; 1 is the system's for what somebody broke off
!define IN_USE 3

Name "Mevo"
OutFile "${SETUP}"
BrandingText "Mevo ${VERSION}"
RequestExecutionLevel admin
ManifestDPIAware true
InstallDir "$PROGRAMFILES64\Mevo"
InstallDirRegKey HKLM "${ENTRY}" "InstallLocation"
AllowSkipFiles off ; a file that can't be written ends it, silently too

VIProductVersion "${VERSION}.0.0"
VIAddVersionKey "ProductName" "Mevo administration module"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Mevo administration module, setup"
VIAddVersionKey "CompanyName" "Quend Research"
VIAddVersionKey "LegalCopyright" "Quend Research"

Var Share_Given
Var Share

!define MUI_ICON "${SOURCES}/packaging/windows/mevo.ico"
!define MUI_UNICON "${SOURCES}/packaging/windows/mevo.ico"
!define MUI_ABORTWARNING

!define MUI_WELCOMEPAGE_TITLE "Mevo ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "This installs the Mevo administration module for everybody who uses this computer.$\r$\n$\r$\n\
An earlier version is replaced. Databases and the settings in product.ini are kept.$\r$\n$\r$\n\
If Mevo is open, please close it first."
!insertmacro MUI_PAGE_WELCOME

!define MUI_PAGE_HEADER_TEXT "Licences"
!define MUI_PAGE_HEADER_SUBTEXT "Mevo uses libraries of others. They are installed with it, in the folder Licences in full."
!define MUI_LICENSEPAGE_TEXT_TOP "Press Page Down to see the rest."
!define MUI_LICENSEPAGE_TEXT_BOTTOM "Nothing here needs your consent."
!define MUI_LICENSEPAGE_BUTTON "&Next >"
!insertmacro MUI_PAGE_LICENSE "${LISTS}/licences.txt"

!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES

!define MUI_FINISHPAGE_TITLE "Mevo is installed"
!define MUI_FINISHPAGE_TEXT "You find it in the start menu, together with a practice school and its two manuals. Where there is no database yet, \
its first start asks for one or makes one."
!define MUI_FINISHPAGE_TEXT_LARGE
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "&Start Mevo"
!define MUI_FINISHPAGE_RUN_FUNCTION Start_Mevo
!insertmacro MUI_PAGE_FINISH

!define MUI_UNCONFIRMPAGE_TEXT_TOP "The program and its settings in product.ini are removed from this computer. Databases and archives stay where they are, \
and so does whatever else was put into the program's folder."
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES

!insertmacro MUI_LANGUAGE "English"

!macro Give_Up CODE WORDS
    MessageBox MB_OK|MB_ICONSTOP "${WORDS}" /SD IDOK
    SetErrorLevel ${CODE}
    Abort "${WORDS}"
!macroend

; Nothing is replaced or removed while one of the programs runs: half a new version would be left. One that runs can't be
; opened for writing.
!macro Wait_For PROGRAM
    ${DoWhile} ${FileExists} "$INSTDIR\${PROGRAM}"
        ClearErrors
        FileOpen $0 "$INSTDIR\${PROGRAM}" a
        ${IfNot} ${Errors}
            FileClose $0
            ${Break}
        ${EndIf}
        ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Please close Mevo first: ${PROGRAM} is in use." /SD IDCANCEL IDCANCEL`
            SetErrorLevel ${IN_USE}
            Abort "${PROGRAM} is in use. Nothing was changed."
        ${EndIf}
    ${Loop}
!macroend

!macro For_All_Users
    SetRegView 64
    SetShellVarContext all
!macroend

; /SHARE=\\server\mevo, and with blanks /SHARE="\\server\our share" or "/SHARE=\\server\our share", which is what some shells
; make of either.
Function Read_Share
    ${GetParameters} $0
    StrCpy $1 " "
    StrCpy $2 0
    ${Do}
        StrCpy $3 $0 7 $2
        ${If} $3 == ""
            Return
        ${ElseIf} $3 == "/SHARE=" ; in small letters too
            ${Break}
        ${EndIf}
        StrCpy $1 $0 1 $2
        IntOp $2 $2 + 1
    ${Loop}
    StrCpy $Share_Given 1
    IntOp $2 $2 + 7
    StrCpy $3 $0 1 $2
    ${If} $3 == '"'
        StrCpy $1 '"'
        IntOp $2 $2 + 1
    ${EndIf}
    ${Do}
        StrCpy $3 $0 1 $2
        ${If} $3 == ""
        ${OrIf} $3 == $1
            Return
        ${EndIf}
        StrCpy $Share "$Share$3"
        IntOp $2 $2 + 1
    ${Loop}
FunctionEnd

Function .onInit
    !insertmacro For_All_Users
    ${IfNot} ${AtLeastWin10}
        !insertmacro Give_Up ${NOT_DONE} "Mevo ${VERSION} needs Windows 10 or later."
    ${EndIf}
    Call Read_Share
    ${DoWhile} $Share != ""
        StrCpy $0 $Share 1 -1
        ${If} $0 != "\"
        ${AndIf} $0 != "/"
            ${Break}
        ${EndIf}
        StrCpy $Share $Share -1
    ${Loop}
FunctionEnd

; Its own list takes away what is no longer part of this version. Its settings stay, or go along to another folder.
Function Remove_Earlier
    ReadRegStr $1 HKLM "${ENTRY}" "InstallLocation"
    ${If} $1 == ""
    ${OrIfNot} ${FileExists} "$1\Uninstall.exe"
        Return
    ${EndIf}
    StrCpy $2 "/UPDATE"
    ${If} $1 != $INSTDIR
        StrCpy $2 ""
        ${IfNot} ${FileExists} "${SETTINGS}"
        ${AndIf} ${FileExists} "$1\product.ini"
            ClearErrors
            CreateDirectory "$INSTDIR"
            CopyFiles /SILENT "$1\product.ini" "${SETTINGS}"
            ${If} ${Errors}
                !insertmacro Give_Up ${NOT_DONE} "The settings of the earlier version couldn't be copied."
            ${EndIf}
        ${EndIf}
    ${EndIf}
    DetailPrint "Removing the earlier version"
    ExecWait '"$1\Uninstall.exe" /S $2 _?=$1' $0
    ${If} $0 <> 0
        MessageBox MB_OK|MB_ICONSTOP "The earlier version couldn't be removed from $1. If Mevo is open, please close it and start again." /SD IDOK
        SetErrorLevel $0
        Abort "The earlier version couldn't be removed."
    ${EndIf}
    ${If} $2 == ""
        Delete "$1\Uninstall.exe" ; where it runs, it can't remove itself
        RMDir "$1"
    ${EndIf}
FunctionEnd

; The program reads UTF-8, and the system writes its own code page: so the bytes of UTF-8 are handed to it as characters.
Function Write_Share
    System::Call 'kernel32::WideCharToMultiByte(i 65001, i 0, w "$Share", i -1, m .r0, i ${NSIS_MAX_STRLEN}, p 0, p 0)'
    ClearErrors
    WriteINIStr "${SETTINGS}" "SETTINGS" "database_sharepath" $0
    ReadINIStr $1 "${SETTINGS}" "SETTINGS" "database_sharepath"
    ${If} ${Errors}
    ${OrIf} $1 != $0
        !insertmacro Give_Up ${NOT_DONE} "The share's name couldn't be written to ${SETTINGS}."
    ${EndIf}
FunctionEnd

; Whoever uses the program writes here. Once the folder is there, its rights are the school's own matter.
Function Make_Data_Folder
    ${If} ${FileExists} "$APPDATA\${DATA}\*.*"
        Return
    ${EndIf}
    CreateDirectory "$APPDATA\${DATA}"
    nsExec::ExecToLog '"$SYSDIR\icacls.exe" "$APPDATA\${DATA}" /grant *S-1-5-32-545:(OI)(CI)M'
    Pop $0
    ${If} $0 != 0
        DetailPrint "Users couldn't be given the right to write in $APPDATA\${DATA} ($0)."
    ${EndIf}
FunctionEnd

Function Write_Entry
    WriteRegStr HKLM "${ENTRY}" "DisplayName" "Mevo administration module"
    WriteRegStr HKLM "${ENTRY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${ENTRY}" "Publisher" "Quend Research"
    WriteRegStr HKLM "${ENTRY}" "DisplayIcon" "$INSTDIR\mevo.exe"
    WriteRegStr HKLM "${ENTRY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${ENTRY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
    WriteRegStr HKLM "${ENTRY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
    WriteRegDWORD HKLM "${ENTRY}" "EstimatedSize" ${KILOBYTES}
    WriteRegDWORD HKLM "${ENTRY}" "NoModify" 1
    WriteRegDWORD HKLM "${ENTRY}" "NoRepair" 1
FunctionEnd

Function Fill_Start_Menu
    CreateDirectory "$SMPROGRAMS\Mevo"
    SetOutPath "$INSTDIR" ; where what they start begins
    CreateShortcut "$SMPROGRAMS\Mevo\Mevo.lnk" "$INSTDIR\mevo-setup.exe" "--then-start" "$INSTDIR\mevo.exe"
    CreateShortcut "$SMPROGRAMS\Mevo\Practice school.lnk" "$INSTDIR\mevo-practice.exe"
    CreateShortcut "$SMPROGRAMS\Mevo\Software Guide.lnk" "$INSTDIR\Manuals\Quend Mevo Software Guide v5.1.htm"
    CreateShortcut "$SMPROGRAMS\Mevo\Teacher's Manual.lnk" "$INSTDIR\Manuals\Quend Mevo Teachers Manual Mar2010 4th Edn.htm"
FunctionEnd

Section
    !include "${LISTS}/wait.nsh"
    Call Remove_Earlier
    SetOutPath "$INSTDIR"
    SetOverwrite off
    File "${FOLDER}/product.ini"
    !ifdef STANDIN_BYTES
        File "${FOLDER}/MevoV51Shell.exe" ; the suite's own stays
    !endif
    SetOverwrite on
    !include "${LISTS}/install.nsh"
    ClearErrors
    WriteUninstaller "$INSTDIR\Uninstall.exe"
    ${If} $Share_Given == 1
        Call Write_Share
    ${EndIf}
    Call Make_Data_Folder
    Call Fill_Start_Menu
    Call Write_Entry
SectionEnd

; By the desktop, so that it runs with the user's own rights and not with those of the installation.
Function Start_Mevo
    Exec '"$WINDIR\explorer.exe" "$SMPROGRAMS\Mevo\Mevo.lnk"'
FunctionEnd

; What bears the shell's name may be the suite's by now. The stand-in is told by its size.
!ifdef STANDIN_BYTES
Function un.Remove_Stand_In
    ClearErrors
    FileOpen $3 "$INSTDIR\MevoV51Shell.exe" r
    ${If} ${Errors}
        Return
    ${EndIf}
    FileSeek $3 0 END $4
    FileClose $3
    ${If} $4 = ${STANDIN_BYTES}
        Delete "$INSTDIR\MevoV51Shell.exe"
    ${EndIf}
FunctionEnd
!endif

Function un.onInit
    !insertmacro For_All_Users
FunctionEnd

; Only what was installed, by its names: the folder may hold anything else.
Section un.Mevo
    ${GetParameters} $0
    StrCpy $1 0
    ClearErrors
    ${GetOptions} $0 "/UPDATE" $2
    ${IfNot} ${Errors}
        StrCpy $1 1
    ${EndIf}
    !include "${LISTS}/wait.nsh"
    ClearErrors
    !include "${LISTS}/delete.nsh"
    ${If} ${Errors}
        !insertmacro Give_Up ${NOT_DONE} "Some files in $INSTDIR couldn't be removed."
    ${EndIf}
    !include "${LISTS}/folders.nsh"
    !ifdef STANDIN_BYTES
        Call un.Remove_Stand_In
    !endif
    ${If} $1 == 1
        Return
    ${EndIf}
    Delete "${SETTINGS}"
    Delete "$SMPROGRAMS\Mevo\Mevo.lnk"
    Delete "$SMPROGRAMS\Mevo\Practice school.lnk"
    Delete "$SMPROGRAMS\Mevo\Software Guide.lnk"
    Delete "$SMPROGRAMS\Mevo\Teacher's Manual.lnk"
    RMDir "$SMPROGRAMS\Mevo"
    DeleteRegKey HKLM "${ENTRY}"
    Delete "$INSTDIR\Uninstall.exe"
    SetOutPath "$TEMP" ; a folder that is being worked in can't be removed
    RMDir "$INSTDIR"
SectionEnd
