; The installer. packaging/windows/installer.sh calls makensis with VERSION, LISTS (put.nsh, remove.nsh, folders.nsh,
; installed-files.txt, zirvo.ico), COMPRESSOR, SIZE [KiB] and OUT.
;   setup.exe /S                   silent, for this user; needs no rights
;   setup.exe /S /AllUsers         silent, for all users; needs an administrator
;   setup.exe /S ... /D=C:\Folder  to another folder; the last word of the line, without quotes
;   uninstall.exe /S               silent removal
Target amd64-unicode
SetCompressor ${COMPRESSOR}
Name "ZIRVO ${VERSION}"
OutFile "${OUT}"
ManifestSupportedOS Win10
BrandingText "ZIRVO ${VERSION}"
InstallButtonText "$(InstallButton)"

!define KEY "Software\ZIRVO"
!define REMOVAL "Software\Microsoft\Windows\CurrentVersion\Uninstall\ZIRVO"
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_DEFAULT_CURRENTUSER
!define MULTIUSER_USE_PROGRAMFILES64
!define MULTIUSER_INSTALLMODE_INSTDIR ZIRVO
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME Folder
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME Folder
!include MultiUser.nsh
!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh

!define MUI_ICON "${LISTS}/zirvo.ico"
!define MUI_UNICON "${LISTS}/zirvo.ico"
!define MUI_ABORTWARNING
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN "$INSTDIR\zirvo.exe"
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE_TEXT_LOCATION "$(RemovedFrom)"
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE Japanese

VIProductVersion "${VERSION}.0.0"
VIFileVersion "${VERSION}.0.0"
VIAddVersionKey /LANG=0 ProductName "ZIRVO"
VIAddVersionKey /LANG=0 FileDescription "ZIRVO ${VERSION} setup"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 LegalCopyright "Copyright (c) 2026 the ZIRVO developers, MIT License"

LangString TooOld ${LANG_ENGLISH} "ZIRVO needs 64-bit Windows 10 or later."
LangString TooOld ${LANG_JAPANESE} "ZIRVO には 64 ビットの Windows 10 以降が必要です。"
; The Japanese words of NSIS fit their places in one font alone; these are short in any.
LangString InstallButton ${LANG_ENGLISH} "&Install"
LangString InstallButton ${LANG_JAPANESE} "ｲﾝｽﾄｰﾙ(&I)"
LangString RemovedFrom ${LANG_ENGLISH} "Uninstalling from:"
LangString RemovedFrom ${LANG_JAPANESE} "フォルダ:"
LangString EvaFile ${LANG_ENGLISH} "Pavement analysis input"
LangString EvaFile ${LANG_JAPANESE} "舗装解析の入力"
LangString VenFile ${LANG_ENGLISH} "Pavement graphics input"
LangString VenFile ${LANG_JAPANESE} "舗装図化の入力"

!macro PutFile FROM FOLDER NAME
  SetOutPath "$INSTDIR\${FOLDER}"
  File "${FROM}"
!macroend
!macro RemoveFile NAME
  Delete "$INSTDIR\${NAME}"
!macroend

; All files of one version have one time. A sample that has another one than the program has been changed by the user.
!macro IfItIsOurs NAME
  StrCpy $R0 ours
  ${If} ${FileExists} "$INSTDIR\${NAME}"
    GetFileTime "$INSTDIR\zirvo.exe" $R1 $R2
    GetFileTime "$INSTDIR\${NAME}" $R3 $R4
    ${If} "$R1 $R2" != "$R3 $R4"
      StrCpy $R0 changed
    ${EndIf}
  ${EndIf}
  ClearErrors
  ${If} $R0 == ours
!macroend
!macro PutSample FROM FOLDER NAME
  !insertmacro IfItIsOurs "${NAME}"
    !insertmacro PutFile "${FROM}" "${FOLDER}" "${NAME}"
  ${EndIf}
!macroend
!macro RemoveSample NAME
  !insertmacro IfItIsOurs "${NAME}"
    Delete "$INSTDIR\${NAME}"
  ${EndIf}
!macroend

; What the former version has put, by its own list, and this one has not any more: else old libraries and fonts would stay
; for ever. Must come before the new files, since the time of the former program tells which samples are unchanged.
!define NAMES installed-files.txt
!macro NextName FILE NAME ; sets the error flag behind the last one
  ClearErrors
  FileRead ${FILE} ${NAME}
  ${IfNot} ${Errors}
    ${Do}
      StrCpy $R9 ${NAME} 1 -1
      ${If} $R9 != "$\n"
      ${AndIf} $R9 != "$\r"
        ${ExitDo}
      ${EndIf}
      StrCpy ${NAME} ${NAME} -1
    ${Loop}
    ClearErrors
  ${Else}
    SetErrors ; asking has cleared it
  ${EndIf}
!macroend

; $R6, a name in the former list: $R8 is "missing" unless this version has the file too.
Function FindAmongTheNew
  StrCpy $R8 missing
  FileOpen $R7 "$PLUGINSDIR\${NAMES}" r
  ${Do}
    !insertmacro NextName $R7 $R5
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    ${If} $R5 == $R6
      StrCpy $R8 there
      ${ExitDo}
    ${EndIf}
  ${Loop}
  FileClose $R7
FunctionEnd

; The folders above $R6 that are empty by now.
Function RemoveEmptyFolders
  StrCpy $R7 $R6
  ${Do}
    ${Do}
      ${If} $R7 == ""
        Return
      ${EndIf}
      StrCpy $R9 $R7 1 -1
      StrCpy $R7 $R7 -1
    ${LoopUntil} $R9 == "\"
    RMDir "$INSTDIR\$R7"
  ${Loop}
FunctionEnd

Function RemoveWhatIsNoMore
  ${IfNot} ${FileExists} "$INSTDIR\${NAMES}"
    Return
  ${EndIf}
  InitPluginsDir
  File "/oname=$PLUGINSDIR\${NAMES}" "${LISTS}/${NAMES}"
  FileOpen $R4 "$INSTDIR\${NAMES}" r
  ${Do}
    !insertmacro NextName $R4 $R6
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    Call FindAmongTheNew
    StrCpy $R9 $R6 8
    ${If} $R8 != missing
    ${ElseIf} $R9 == "samples\"
      Push $R4
      !insertmacro RemoveSample "$R6"
      Pop $R4
    ${Else}
      !insertmacro RemoveFile "$R6"
    ${EndIf}
    ${If} $R8 == missing
      Call RemoveEmptyFolders
    ${EndIf}
  ${Loop}
  FileClose $R4
FunctionEnd

; A kind of file: its words and icon, and a double click opens it, unless the user has another program for it.
!macro PutKind EXTENSION CLASS WORDS ICON
  WriteRegStr SHCTX "Software\Classes\${CLASS}" "" "${WORDS}"
  WriteRegStr SHCTX "Software\Classes\${CLASS}\DefaultIcon" "" "$INSTDIR\${ICON}"
  WriteRegStr SHCTX "Software\Classes\${CLASS}\shell\open\command" "" '"$INSTDIR\zirvo.exe" "%1"'
  WriteRegStr SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids" "${CLASS}" ""
  ReadRegStr $R0 SHCTX "Software\Classes\${EXTENSION}" ""
  ${If} $R0 == ""
    WriteRegStr SHCTX "Software\Classes\${EXTENSION}" "" "${CLASS}"
  ${EndIf}
!macroend
!macro RemoveKind EXTENSION CLASS
  ReadRegStr $R0 SHCTX "Software\Classes\${EXTENSION}" ""
  ${If} $R0 == "${CLASS}"
    DeleteRegValue SHCTX "Software\Classes\${EXTENSION}" ""
  ${EndIf}
  DeleteRegValue SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids" "${CLASS}"
  DeleteRegKey /ifempty SHCTX "Software\Classes\${EXTENSION}\OpenWithProgids"
  DeleteRegKey /ifempty SHCTX "Software\Classes\${EXTENSION}"
  DeleteRegKey SHCTX "Software\Classes\${CLASS}"
!macroend
!macro TellTheShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Var chosen
Function .onInit
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_ICONSTOP "$(TooOld)" /SD IDOK
    SetErrorLevel 1
    Quit
  ${EndIf}
  SetRegView 64
  StrCpy $chosen $INSTDIR ; empty but for /D=
  !insertmacro MULTIUSER_INIT
  ${If} $chosen != ""
    StrCpy $INSTDIR $chosen
  ${EndIf}
FunctionEnd

Function un.onInit
  SetRegView 64
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section
  Call RemoveWhatIsNoMore
  !include "${LISTS}/put.nsh"
  !insertmacro PutFile "${LISTS}/${NAMES}" "." "${NAMES}"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\ZIRVO.lnk" "$INSTDIR\zirvo.exe"
  !insertmacro PutKind .eva ZIRVO.Analysis "$(EvaFile)" eva.ico
  !insertmacro PutKind .ven ZIRVO.Graphics "$(VenFile)" ven.ico
  !insertmacro TellTheShell
  WriteRegStr SHCTX "${KEY}" Folder "$INSTDIR"
  WriteRegStr SHCTX "${REMOVAL}" DisplayName "ZIRVO ${VERSION}"
  WriteRegStr SHCTX "${REMOVAL}" DisplayVersion "${VERSION}"
  WriteRegStr SHCTX "${REMOVAL}" Publisher "the ZIRVO developers"
  WriteRegStr SHCTX "${REMOVAL}" DisplayIcon "$INSTDIR\zirvo.exe"
  WriteRegStr SHCTX "${REMOVAL}" InstallLocation "$INSTDIR"
  WriteRegStr SHCTX "${REMOVAL}" UninstallString '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${REMOVAL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${REMOVAL}" EstimatedSize ${SIZE}
  WriteRegDWORD SHCTX "${REMOVAL}" NoModify 1
  WriteRegDWORD SHCTX "${REMOVAL}" NoRepair 1
SectionEnd

; What the installer has put, file by file: settings and the user's own files stay, and the folder with them.
Section Uninstall
  !include "${LISTS}/remove.nsh"
  !insertmacro RemoveFile "${NAMES}"
  Delete "$INSTDIR\uninstall.exe"
  !include "${LISTS}/folders.nsh"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\ZIRVO.lnk"
  !insertmacro RemoveKind .eva ZIRVO.Analysis
  !insertmacro RemoveKind .ven ZIRVO.Graphics
  !insertmacro TellTheShell
  DeleteRegKey SHCTX "${REMOVAL}"
  DeleteRegKey SHCTX "${KEY}"
SectionEnd
