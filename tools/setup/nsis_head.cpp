#include "tools/setup/nsis_body.h"

namespace tarn::tools {
namespace {

constexpr std::string_view kHead =
    R"nsis(; Created by "tarn setup". To make the setup program by hand:
;     makensis -INPUTCHARSET UTF8 THIS_FILE
;
; Exit codes: 0 success, 1 cancelled, 2 failed, 3 a newer version is installed,
; 4 the application is running, 5 the path of the folder is too long

Target amd64-unicode
Unicode true
SetCompressor @COMPRESSOR@
ManifestSupportedOS all
ManifestDPIAware true
RequestExecutionLevel @LEVEL@
AllowSkipFiles off
ShowInstDetails nevershow
ShowUninstDetails nevershow

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\@ID@"

Name "@NAME@" "@DOUBLED_NAME@"
BrandingText "@DOUBLED_NAME@ @VERSION@"
Caption "@NAME@ @VERSION@"
OutFile "@OUTPUT@"
InstallDir "@PROGRAMS@\@FILE_NAME@"
@SIGN@

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WordFunc.nsh
!include nsDialogs.nsh

Var OldFolder      ; of the installed version; empty when there is none
Var Staging        ; the folder into which files are extracted
Var Backup         ; the folder to which files are moved until all new ones are in place
Var Stranded       ; a file in that folder that could not be moved back
Var Root           ; the folder that a list applies to
Var ListFile
Var Callback       ; called for each line of a list, with its letter and its text
Var Kind
Var Line
Var Key
Var ValueName
Var Busy           ; a file that is in use
Var Kept           ; the settings file, when it stays as the user has changed it
Var Replaced       ; the settings file, when the user's is replaced by another one
Var WithSettings   ; whether the uninstaller removes the changed settings file
Var CheckBox
Var SettingsFile   ; the name of the settings file; empty when there is none

@ICON@
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_FUNCTION StartApplication
!insertmacro MUI_PAGE_WELCOME
@LICENSE_PAGE@
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipFolderPage
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE CheckFolder
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!define MUI_UNCONFIRMPAGE ; its texts
UninstPage custom un.ShowConfirmation un.LeaveConfirmation
!insertmacro MUI_UNPAGE_INSTFILES

@LANGUAGES@
@VERSION_INFORMATION@
; The current folder becomes the shortcut's working folder.
!macro MakeShortcut FOLDER
  SetOutPath "$INSTDIR"
  CreateShortcut "${FOLDER}\@FILE_NAME@.lnk" "$INSTDIR\@EXECUTABLE@" "" "$INSTDIR\@EXECUTABLE@" 0 SW_SHOWNORMAL "" "@DESCRIPTION@"
!macroend

; What setup and the uninstaller share; the uninstaller's functions have a prefix.
!macro SharedFunctions UN
Function ${UN}WalkList
  ClearErrors
  FileOpen $R8 $ListFile r
  ${If} ${Errors}
    Return
  ${EndIf}
  FileSeek $R8 2 SET ; the byte order mark
  ${Do}
    ClearErrors
    FileReadUTF16LE $R8 $Line
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    StrCpy $Kind $Line 1
    StrCpy $Line $Line "" 2
    StrCpy $Line $Line -2
    Call $Callback
  ${LoopUntil} $Busy != ""
  FileClose $R8
FunctionEnd

; A program's file cannot be opened for writing while it runs.
Function ${UN}FindBusyFile
  ${If} $Kind == "F"
  ${AndIf} ${FileExists} "$Root\$Line"
    ClearErrors
    FileOpen $R9 "$Root\$Line" a
    ${If} ${Errors}
      SetFileAttributes "$Root\$Line" NORMAL
      ClearErrors
      FileOpen $R9 "$Root\$Line" a
    ${EndIf}
    ${If} ${Errors}
      StrCpy $Busy $Line
    ${Else}
      FileClose $R9
    ${EndIf}
  ${EndIf}
FunctionEnd

; The archives of classes that the launcher has made.
Function ${UN}RemoveArchives
  ExpandEnvStrings $Line $Line
  ${GetParent} $Line $R3
  StrLen $R4 "$Line@ARCHIVES@"
  FindFirst $R5 $R6 "$Line@ARCHIVES@"
  ${DoUntil} $R6 == ""
    ; A wildcard matches no character, too, and short names are compared as well.
    StrLen $R7 "$R3\$R6"
    ${If} $R7 == $R4
      SetFileAttributes "$R3\$R6" NORMAL ; Java makes them read-only
      Delete "$R3\$R6"
    ${EndIf}
    FindNext $R5 $R6
  ${Loop}
  FindClose $R5
  RMDir "$R3"
FunctionEnd

Function ${UN}RemoveItem
  ${Select} $Kind
  ${Case} "F"
    ${If} $Line != $Kept
      Delete "$Root\$Line"
    ${EndIf}
  ${Case} "D"
    RMDir "$Root\$Line"
  ${Case} "S"
    Delete "$SMPROGRAMS\$Line"
  ${Case} "L"
    Delete "$DESKTOP\$Line"
  ${Case} "A"
    Call ${UN}RemoveArchives
  ${Case} "K"
    StrCpy $Key $Line
  ${Case} "N"
    StrCpy $ValueName $Line
  ${Case} "V"
    ; The first character is the mark that stands for the folder.
    ${WordReplace} $Line "${U+1}" "$Root" "+" $R6
    ClearErrors
    ReadRegStr $R7 @ROOT@ $Key $ValueName
    ${IfNot} ${Errors}
    ${AndIf} $R7 S== $R6
      DeleteRegValue @ROOT@ $Key $ValueName
    ${EndIf}
  ${Case} "E"
    DeleteRegKey /ifnosubkeys /ifnovalues @ROOT@ $Line
  ${EndSelect}
FunctionEnd

; Asks the user to close the application; sets $Busy when that did not happen.
Function ${UN}WaitUntilFree
  ${Do}
    StrCpy $Busy ""
    GetFunctionAddress $Callback ${UN}FindBusyFile
    Call ${UN}WalkList
    ${If} $Busy == ""
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(ApplicationRuns)$\r$\n$\r$\n$Root\$Busy" /SD IDCANCEL IDRETRY +2
    Return
  ${Loop}
FunctionEnd

; Pushes "same" if two files have the same bytes.
Function ${UN}CompareFiles
  Exch $0
  Exch
  Exch $1
  Push $2
  Push $3
  Push $4
  ClearErrors
  FileOpen $0 $0 r
  FileOpen $1 $1 r
  StrCpy $4 "different"
  ${IfNot} ${Errors}
    ${Do}
      StrCpy $2 ""
      StrCpy $3 ""
      FileReadByte $0 $2
      FileReadByte $1 $3
      ${If} $2 != $3
        ${ExitDo}
      ${EndIf}
      ${If} $2 == ""
        StrCpy $4 "same"
        ${ExitDo}
      ${EndIf}
    ${Loop}
  ${EndIf}
  FileClose $0
  FileClose $1
  StrCpy $0 $4
  Pop $4
  Pop $3
  Pop $2
  Pop $1
  Exch $0
FunctionEnd

; Whether the user has changed the settings file: pushes "same" or "different".
Function ${UN}CompareSettings
  Push "$INSTDIR\$SettingsFile"
  Push "$INSTDIR\uninstall.ini"
  Call ${UN}CompareFiles
FunctionEnd

Function ${UN}RefreshShell
  System::Call "shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)"
FunctionEnd
!macroend

!insertmacro SharedFunctions ""
!insertmacro SharedFunctions "un."

)nsis";

}  // namespace

std::string_view NsisHead() {
    return kHead;
}

}  // namespace tarn::tools
