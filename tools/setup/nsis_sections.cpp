#include "tools/setup/nsis_body.h"

namespace tarn::tools {
namespace {

constexpr std::string_view kSections = R"nsis(Function .onInit
  SetShellVarContext @CONTEXT@
  SetRegView 64
  StrCpy $SettingsFile "@SETTINGS@"
  ReadRegStr $0 @ROOT@ "${UNINSTALL_KEY}" "ComparableVersion"
  ${If} $0 != ""
    ${VersionCompare} $0 "@NUMBER@" $1
    ${If} $1 == 1
      MessageBox MB_OK|MB_ICONSTOP "$(NewerInstalled)" /SD IDOK
      SetErrorLevel 3
      Quit
    ${EndIf}
  ${EndIf}
  ; An upgrade stays where the product is.
  ReadRegStr $OldFolder @ROOT@ "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $OldFolder != ""
  ${AndIf} ${FileExists} "$OldFolder\uninstall.lst"
    StrCpy $INSTDIR $OldFolder
  ${Else}
    StrCpy $OldFolder ""
  ${EndIf}
FunctionEnd

Function SkipFolderPage
  ${If} $OldFolder != ""
    Abort
  ${EndIf}
FunctionEnd

; Sets the error flag when the longest path would not fit.
Function MeasureFolder
  StrLen $0 "$INSTDIR"
  IntOp $0 $0 + 17
  IntOp $0 $0 + @LONGEST_PATH@
  ClearErrors
  ${If} $0 > 259
    SetErrors
  ${EndIf}
FunctionEnd

Function CheckFolder
  Call MeasureFolder
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(PathTooLong)"
    Abort
  ${EndIf}
FunctionEnd

Function StartApplication
  SetOutPath "$INSTDIR"
  Exec "@START@$\"$INSTDIR\@EXECUTABLE@$\""
FunctionEnd

; Both folders were created by this setup, under names that were free.
Function RemoveStaging
  SetOutPath "$TEMP"
  ${If} $Staging != ""
    RMDir /r "$Staging"
  ${EndIf}
  ${If} $Backup != ""
  ${AndIf} $Stranded == ""
    RMDir /r "$Backup"
  ${EndIf}
  RMDir "$INSTDIR"
FunctionEnd

Function .onInstFailed
  Call RemoveStaging
FunctionEnd

Function QuitIfBusy
  ${If} $OldFolder == ""
    Return
  ${EndIf}
  StrCpy $Root $INSTDIR
  StrCpy $ListFile "$INSTDIR\uninstall.lst"
  Call WaitUntilFree
  ${If} $Busy != ""
    Call RemoveStaging
    SetErrorLevel 4
    Quit
  ${EndIf}
FunctionEnd

; The settings that the user has changed stay while the new version's are those of the old one;
; otherwise the new version's apply, and the user's remain beside them.
Function PrepareSettings
  StrCpy $Kept ""
  StrCpy $Replaced ""
  ${If} $OldFolder == ""
  ${OrIf} $SettingsFile == ""
  ${OrIfNot} ${FileExists} "$INSTDIR\$SettingsFile"
    Return
  ${EndIf}
  Call CompareSettings
  Pop $0
  ${If} $0 == "same"
    Return
  ${EndIf}
  StrCpy $Replaced $SettingsFile
  Push "$Staging\uninstall.ini"
  Push "$INSTDIR\uninstall.ini"
  Call CompareFiles
  Pop $0
  ${If} $0 == "same"
    StrCpy $Kept $SettingsFile
    StrCpy $Replaced ""
  ${EndIf}
FunctionEnd

!macro MakeTemporaryFolder FOLDER
  ClearErrors
  GetTempFileName ${FOLDER} "$INSTDIR"
  Delete "${FOLDER}"
  CreateDirectory "${FOLDER}"
  ${If} ${Errors}
    StrCpy ${FOLDER} ""
    Abort
  ${EndIf}
!macroend

; makensis stores times in steps of two seconds. $0 is the file, $1 its time.
Function SetTime
  System::Call "kernel32::CreateFileW(w r0, i 0x100, i 7, p 0, i 3, i 0, p 0) p .r2"
  System::Call "kernel32::SetFileTime(p r2, p 0, p 0, *l $1)"
  System::Call "kernel32::CloseHandle(p r2)"
FunctionEnd

Section
  Call MeasureFolder
  ${If} ${Errors}
    MessageBox MB_OK|MB_ICONSTOP "$(PathTooLong)" /SD IDOK
    SetErrorLevel 5
    Quit
  ${EndIf}
  Call QuitIfBusy
  StrCpy $Stranded ""
  SetOutPath "$INSTDIR"
  !insertmacro MakeTemporaryFolder $Staging
  !insertmacro MakeTemporaryFolder $Backup
@FILES@
  SetOutPath "$Staging"
  SetDateSave off ; the list has the time of its making, which would differ
  File "/oname=uninstall.lst" "installed.txt"
  SetDateSave on
  @SETTINGS_FILE@
  WriteUninstaller "$Staging\uninstall.exe"
  ${IfNot} ${FileExists} "$Staging\uninstall.exe"
    Abort
  ${EndIf}
  SetOutPath "$TEMP"
  Call QuitIfBusy

  Call PrepareSettings
  StrCpy $Busy ""
  !insertmacro ForEachOldLine MoveOldAway
  ${If} $Busy != ""
    Call RollBack
  ${EndIf}
@FOLDERS@
  !insertmacro ForEachLine "$Staging\uninstall.lst" PlaceItem
  ${If} $Busy != ""
    Call RollBack
  ${EndIf}
  !insertmacro ForOwnFiles MoveOldAway
  !insertmacro ForOwnFiles PlaceItem
  ${If} $Busy != ""
    Call RollBack
  ${EndIf}

  !insertmacro ForEachLine "$INSTDIR\uninstall.lst" KeepReplaced
  ${If} $Replaced != ""
  ${AndIf} ${FileExists} "$Backup\1\$Replaced"
    !insertmacro KeepAsOld "$Backup\1" $Replaced
  ${EndIf}
  ${If} $OldFolder != ""
    !insertmacro ForEachLine "$Backup\1\uninstall.lst" RemoveOldRest
  ${EndIf}
  Call RemoveStaging
  StrCpy $Staging ""
  StrCpy $Backup ""

@SHORTCUTS@
@REGISTRY@
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "DisplayName" "@NAME@"
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "DisplayVersion" "@VERSION@"
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "ComparableVersion" "@NUMBER@"
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\@EXECUTABLE@,0"
  StrCpy $0 "@VENDOR@"
  ${If} $0 != ""
    WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "Publisher" $0
  ${EndIf}
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr @ROOT@ "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD @ROOT@ "${UNINSTALL_KEY}" "EstimatedSize" @SIZE@
  WriteRegDWORD @ROOT@ "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD @ROOT@ "${UNINSTALL_KEY}" "NoRepair" 1
  Call RefreshShell
SectionEnd

Function un.onInit
  SetShellVarContext @CONTEXT@
  SetRegView 64
  StrCpy $SettingsFile "@SETTINGS@"
  StrCpy $WithSettings 0
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/SETTINGS" $1
  ${IfNot} ${Errors}
    StrCpy $WithSettings 1
  ${EndIf}
FunctionEnd

Function un.ShowConfirmation
  !insertmacro MUI_HEADER_TEXT "$(MUI_UNTEXT_CONFIRM_TITLE)" "$(MUI_UNTEXT_CONFIRM_SUBTITLE)"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateLabel} 0 0 100% 24u "$(ConfirmRemoval)"
  Pop $0
  StrCpy $CheckBox ""
  ${If} $SettingsFile != ""
  ${AndIf} ${FileExists} "$INSTDIR\$SettingsFile"
    Call un.CompareSettings
    Pop $0
    ${If} $0 == "different"
      ${NSD_CreateCheckbox} 0 36u 100% 12u "$(RemoveSettings)"
      Pop $CheckBox
    ${EndIf}
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function un.LeaveConfirmation
  ${If} $CheckBox != ""
    ${NSD_GetState} $CheckBox $WithSettings
  ${EndIf}
FunctionEnd

Section Uninstall
  ; The list inside the uninstaller: the one beside it may have been changed.
  InitPluginsDir
  SetOutPath "$PLUGINSDIR"
  SetDateSave off
  File "/oname=installed.lst" "installed.txt"
  SetDateSave on
  SetOutPath "$TEMP"
  StrCpy $Root $INSTDIR
  StrCpy $ListFile "$PLUGINSDIR\installed.lst"
  Call un.WaitUntilFree
  ${If} $Busy != ""
    SetErrorLevel 4
    Quit
  ${EndIf}
  StrCpy $Kept ""
  ${If} $SettingsFile != ""
  ${AndIf} $WithSettings != 1
    Call un.CompareSettings
    Pop $0
    ${If} $0 == "different"
      StrCpy $Kept $SettingsFile
    ${EndIf}
  ${EndIf}
  GetFunctionAddress $Callback un.RemoveItem
  Call un.WalkList
  Delete "$INSTDIR\uninstall.ini"
  Delete "$INSTDIR\uninstall.lst"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey @ROOT@ "${UNINSTALL_KEY}"
  Call un.RefreshShell
SectionEnd
)nsis";

}  // namespace

std::string_view NsisSections() {
    return kSections;
}

}  // namespace tarn::tools
