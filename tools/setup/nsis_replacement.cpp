#include "tools/setup/nsis_body.h"

namespace tarn::tools {
namespace {

// Setup extracts everything into a folder of its own first. Only when that has succeeded and no
// file of the old version is in use, the old files go to another one, by the list of what was
// installed, and the new ones take their places. If one of them cannot, all of it is undone.
constexpr std::string_view kReplacement = R"nsis(!macro MoveFile FROM TO
  ${GetParent} "${TO}" $R6
  CreateDirectory $R6
  ClearErrors
  Rename "${FROM}" "${TO}"
!macroend

!macro MoveBack FOLDER
  !insertmacro MoveFile "${FOLDER}\$Line" "$INSTDIR\$Line"
  ${If} ${Errors}
    StrCpy $Stranded $Line
  ${EndIf}
!macroend

; Keeps a file that was replaced under another name beside the new one.
!macro KeepAsOld FOLDER NAME
  Delete "$INSTDIR\${NAME}.old"
  ClearErrors
  Rename "${FOLDER}\${NAME}" "$INSTDIR\${NAME}.old"
  ${If} ${Errors}
    StrCpy $Stranded ${NAME}
  ${EndIf}
!macroend

; Calls the function for each line of the list.
!macro ForEachLine LIST FUNCTION
  StrCpy $ListFile "${LIST}"
  GetFunctionAddress $Callback ${FUNCTION}
  Call WalkList
!macroend

; The files of the old version go to $Backup\1, whatever else is in the way to $Backup\2.
Function MoveOldAway
  ${If} $Kind == "D"
    RMDir "$INSTDIR\$Line"
  ${ElseIf} $Kind == "F"
  ${AndIf} $Line != $Kept
  ${AndIf} ${FileExists} "$INSTDIR\$Line"
    !insertmacro MoveFile "$INSTDIR\$Line" "$Backup\1\$Line"
    ${If} ${Errors}
      StrCpy $Busy $Line
    ${EndIf}
  ${EndIf}
FunctionEnd

Function MakeFolder
  ${If} ${FileExists} "$INSTDIR\$Line"
  ${AndIfNot} ${FileExists} "$INSTDIR\$Line\*.*"
    !insertmacro MoveFile "$INSTDIR\$Line" "$Backup\2\$Line"
  ${EndIf}
  CreateDirectory "$INSTDIR\$Line"
FunctionEnd

Function PlaceItem
  ${If} $Kind != "F"
  ${OrIf} $Line == $Kept
    Return
  ${EndIf}
  ${If} ${FileExists} "$INSTDIR\$Line"
    !insertmacro MoveFile "$INSTDIR\$Line" "$Backup\2\$Line"
  ${EndIf}
  ClearErrors
  Rename "$Staging\$Line" "$INSTDIR\$Line"
  ${If} ${Errors}
    StrCpy $Busy $Line
  ${EndIf}
FunctionEnd

; Whatever the old version did not install belongs to the user.
Function KeepReplaced
  ${If} $Kind != "F"
  ${AndIf} $Kind != "D"
    Return
  ${EndIf}
  ${If} $Kind == "D"
  ${AndIf} ${FileExists} "$Backup\2\$Line\*.*"
    Return
  ${EndIf}
  ${If} ${FileExists} "$Backup\2\$Line"
    !insertmacro KeepAsOld "$Backup\2" $Line
  ${EndIf}
FunctionEnd

Function TakeNewBack
  ${If} $Kind == "F"
  ${AndIf} $Line != $Kept
  ${AndIfNot} ${FileExists} "$Staging\$Line"
    Rename "$INSTDIR\$Line" "$Staging\$Line"
  ${ElseIf} $Kind == "D"
    RMDir "$INSTDIR\$Line"
    ${If} ${FileExists} "$Backup\2\$Line\*.*"
      Return
    ${EndIf}
  ${EndIf}
  ${If} ${FileExists} "$Backup\2\$Line"
    !insertmacro MoveBack "$Backup\2"
  ${EndIf}
FunctionEnd

Function RestoreOld
  ${If} $Kind == "D"
    CreateDirectory "$INSTDIR\$Line"
  ${ElseIf} $Kind == "F"
  ${AndIf} ${FileExists} "$Backup\1\$Line"
    !insertmacro MoveBack "$Backup\1"
  ${EndIf}
FunctionEnd

; Of the old version, what is not a file in its folder.
Function RemoveOldRest
  ${If} $Kind != "F"
  ${AndIf} $Kind != "D"
    Call RemoveItem
  ${EndIf}
FunctionEnd

!macro ForOwnFile FUNCTION NAME
  StrCpy $Kind "F"
  StrCpy $Line "${NAME}"
  Call ${FUNCTION}
!macroend

!macro ForOwnFiles FUNCTION
  !insertmacro ForOwnFile ${FUNCTION} "uninstall.lst"
  !insertmacro ForOwnFile ${FUNCTION} "uninstall.ini"
  !insertmacro ForOwnFile ${FUNCTION} "uninstall.exe"
!macroend

!macro ForEachOldLine FUNCTION
  ${If} $OldFolder != ""
    !insertmacro ForEachLine "$INSTDIR\uninstall.lst" ${FUNCTION}
  ${EndIf}
!macroend

; Everything becomes what it was, and setup fails.
Function RollBack
  StrCpy $Busy ""
  !insertmacro ForOwnFiles TakeNewBack
  !insertmacro ForEachLine "$Staging\uninstall.lst" TakeNewBack
  !insertmacro ForOwnFiles RestoreOld
  !insertmacro ForEachOldLine RestoreOld
  Abort
FunctionEnd

)nsis";

}  // namespace

std::string_view NsisReplacement() {
    return kReplacement;
}

}  // namespace tarn::tools
